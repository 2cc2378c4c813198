#include "check/run/SeenPairs.h"

#include <gtest/gtest.h>

#include <memory>

namespace polarline {
namespace {

TEST(SeenPairs, AreTheDotsOfTheRawPairWithTheirPlaceOnTheBoard) {
  PairEvaluator evaluator(std::make_shared<const PolarConfig>());
  evaluator.seen.raw = {{0, {1.0F, 2.0F}, {3.0F, 4.0F}}, {7, {5.0F, 6.0F}, {7.0F, 8.0F}}};
  evaluator.boardPoints = {{10.0F, 20.0F, 30.0F}};
  SeenPairs pairs;
  pairs.add(3, evaluator);
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
  SeenPairs pairs;
  pairs.add(0, PairEvaluator(std::make_shared<const PolarConfig>()));
  EXPECT_TRUE(pairs.set().pairs.empty());
}

TEST(SeenPairs, TakeLensAndScaleOfTheRun) {
  PolarConfig config;
  config.type = 2;
  config.f_scale = 0.75F;
  SeenPairs pairs;
  pairs.begin(config, {}, {640, 512});
  EXPECT_EQ(pairs.set().model, LensModel::kFisheye);
  EXPECT_EQ(pairs.set().f_scale, 0.75);
  EXPECT_EQ(pairs.set().size, cv::Size(640, 512));
}

}  // namespace
}  // namespace polarline
