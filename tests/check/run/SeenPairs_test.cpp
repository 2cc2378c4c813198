#include "check/run/SeenPairs.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace polarline {
namespace {

const cv::Size kPicture{640, 512};

PairEvaluator evaluatorWith(std::vector<SharedDot> dots) {
  PairEvaluator evaluator(std::make_shared<const PolarConfig>());
  evaluator.seen.raw = std::move(dots);
  return evaluator;
}

RefinedDot refinedDot(std::int32_t id, DotState state, double x) {
  RefinedDot dot;
  dot.id = id;
  dot.state = state;
  dot.x = x;
  dot.xx = 0.25;
  dot.xy = 0.125;
  dot.yy = 0.5;
  return dot;
}

TEST(SeenPairs, AreTheDotsOfTheRawPairWithTheirPlaceOnTheBoard) {
  PairEvaluator evaluator = evaluatorWith({{0, {1.0F, 2.0F}, {3.0F, 4.0F}}, {7, {5.0F, 6.0F}, {7.0F, 8.0F}}});
  evaluator.boardPoints = {{10.0F, 20.0F, 30.0F}};
  SeenPairs pairs({}, {});
  pairs.add(3, evaluator, kPicture, nullptr);
  const SeenSet& set = pairs.set();
  ASSERT_EQ(set.pairs.size(), 1U);
  EXPECT_EQ(set.pairs[0].index, 3U);
  ASSERT_EQ(set.pairs[0].dots.size(), 2U);
  EXPECT_EQ(set.pairs[0].dots[0].board, cv::Point3d(10.0, 20.0, 30.0));
  EXPECT_EQ(set.pairs[0].dots[1].id, 7);
  EXPECT_EQ(set.pairs[0].dots[1].left, cv::Point2d(5.0, 6.0));
  EXPECT_EQ(set.pairs[0].dots[1].right, cv::Point2d(7.0, 8.0));
  EXPECT_FALSE(set.pairs[0].dots[1].board);
}

TEST(SeenPairs, LeaveOutAPairWithoutDots) {
  SeenPairs pairs({}, {});
  pairs.add(0, evaluatorWith({}), kPicture, nullptr);
  EXPECT_TRUE(pairs.set().pairs.empty());
}

TEST(SeenPairs, TakeLensAndScaleOfTheRun) {
  PolarConfig config;
  config.type = 2;
  config.f_scale = 0.75F;
  SeenPairs pairs(config, {});
  pairs.add(0, evaluatorWith({}), kPicture, nullptr);
  EXPECT_EQ(pairs.set().model, LensModel::kFisheye);
  EXPECT_EQ(pairs.set().f_scale, 0.75);
  EXPECT_EQ(pairs.set().size, kPicture);
}

// 640 - 601 = 39 columns and 512 - 400 = 112 rows are cut away; of an odd number the smaller half lies on the left.
TEST(SeenPairs, CountFromTheCornerOfTheWholePicture) {
  PolarConfig config;
  config.crop = 1;
  config.cropped_cols = 601;
  config.cropped_rows = 400;
  SeenPairs pairs(config, {});
  pairs.add(0, evaluatorWith({{4, {1.0F, 2.0F}, {3.0F, 4.0F}}}), kPicture, nullptr);
  const SeenDot& dot = pairs.set().pairs.at(0).dots.at(0);
  EXPECT_EQ(dot.left, cv::Point2d(20.0, 58.0));
  EXPECT_EQ(dot.right, cv::Point2d(22.0, 60.0));
}

TEST(SeenPairs, TakeTheRefinedCentresOfDotsRefinedInBothPictures) {
  const PairEvaluator evaluator = evaluatorWith({{1, {}, {}}, {2, {}, {}}, {3, {}, {}}});
  RefinedPictures refined;
  refined[0].dots = {refinedDot(1, DotState::kRefined, 10.0), refinedDot(2, DotState::kRefined, 20.0),
                     refinedDot(3, DotState::kClipped, 30.0)};
  refined[1].dots = {refinedDot(1, DotState::kRefined, 11.0), refinedDot(2, DotState::kRefined, 21.0),
                     refinedDot(3, DotState::kRefined, 31.0)};
  SeenPairs pairs({}, {});
  pairs.add(0, evaluator, kPicture, &refined);
  const std::vector<SeenDot>& dots = pairs.set().pairs.at(0).dots;
  ASSERT_EQ(dots.size(), 2U);
  EXPECT_EQ(dots[1].left.x, 20.0);
  EXPECT_EQ(dots[1].right.x, 21.0);
  EXPECT_EQ(dots[1].right_covariance, cv::Matx22d(0.25, 0.125, 0.125, 0.5));
}

TEST(SeenPairs, TakeTheDetectedCentresWhereFewAreRefined) {
  const PairEvaluator evaluator = evaluatorWith({{1, {5.0F, 0.0F}, {}}, {2, {}, {}}, {3, {}, {}}});
  RefinedPictures refined;
  refined[0].dots = refined[1].dots = {refinedDot(1, DotState::kRefined, 10.0)};
  SeenPairs pairs({}, {});
  pairs.add(0, evaluator, kPicture, &refined);
  ASSERT_EQ(pairs.set().pairs.at(0).dots.size(), 3U);
  EXPECT_EQ(pairs.set().pairs[0].dots[0].left.x, 5.0);
}

TEST(SeenPairs, OfALongRunAreEvenlySpacedAndNotTooMany) {
  std::vector<SharedDot> dots(1000);
  SeenPairs pairs({}, {});
  for (std::size_t index = 0; index < 100; ++index) pairs.add(index, evaluatorWith(dots), kPicture, nullptr);
  const std::vector<SeenPair>& kept = pairs.set().pairs;
  // 21 pairs are too many and become 11, every second one; the same again at the 41st and at the 81st pair.
  ASSERT_EQ(kept.size(), 13U);
  for (std::size_t k = 0; k < kept.size(); ++k) EXPECT_EQ(kept[k].index, 8 * k);
}

}  // namespace
}  // namespace polarline
