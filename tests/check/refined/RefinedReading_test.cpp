#include "check/refined/RefinedReading.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "PolarLinePrecision/Status.h"

namespace polarline {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// Dots 3 and 7 of the left picture, 3 of the right one; the evaluator has seen both rectified.
struct RefinedReading : ::testing::Test {
  PairEvaluator evaluator{std::make_shared<const PolarConfig>()};
  RefinedPictures pictures;

  RefinedReading() {
    evaluator.seen.rectified = {{3, {10, 20}, {9, 20.5F}}, {7, {30, 40}, {28, 39}}};
    evaluator.figures.dy_means = 0.25F;
    evaluator.figures.setMeasured(FigureGroup::kRows);
    pictures[0].dots = {dot(3, DotState::kRefined, {11.5, 21.5}, 0.0004, 0.0009),
                        dot(7, DotState::kClipped, {31.5, 41.5}, kNone, kNone)};
    pictures[1].dots = {dot(3, DotState::kRefined, {12.5, 22.5}, 0.0016, 0.0025)};
  }
  static RefinedDot dot(std::int32_t id, DotState state, const cv::Point2d& at, double xx, double yy) {
    RefinedDot made;
    made.id = id;
    made.state = state;
    made.x = at.x;
    made.y = at.y;
    made.xx = xx;
    made.yy = yy;
    return made;
  }
};

TEST_F(RefinedReading, HasTheEvaluatorsFiguresAndTheDotsOfBothPictures) {
  const RefinedPair pair = readRefined(0, evaluator, pictures, {});
  EXPECT_EQ(pair.problem, "");
  EXPECT_EQ(pair.figure("dy_means")->values, std::vector<double>{0.25});
  EXPECT_TRUE(pair.figure("tri_rms")->values.empty());
  EXPECT_EQ(pair.refined_left, 1U);
  EXPECT_EQ(pair.refined_right, 1U);
  EXPECT_EQ(pair.points.id, (std::vector<std::int32_t>{3, 7}));
  EXPECT_EQ(pair.points.dy, (std::vector<float>{-0.5F, 1.0F}));
  EXPECT_EQ(pair.points.left_sd_x[0], 0.02F);
  EXPECT_EQ(pair.points.left_sd_y[0], 0.03F);
  EXPECT_EQ(pair.points.right_sd_x[0], 0.04F);
  EXPECT_EQ(pair.points.right_sd_y[0], 0.05F);
  EXPECT_TRUE(std::isnan(pair.points.left_sd_x[1]));
  EXPECT_TRUE(std::isnan(pair.points.right_sd_y[1]));
  EXPECT_EQ(pair.points.left_state, (std::vector{DotState::kRefined, DotState::kClipped}));
  EXPECT_EQ(pair.points.right_state, (std::vector{DotState::kRefined, DotState::kUnclear})) << "not known of dot 7";
}

TEST_F(RefinedReading, TakesPlacesThatNoEvaluationSawFromTheDots) {
  const RefinedPair pair = readRefined(0, evaluator, pictures, {});
  EXPECT_EQ(pair.points.left_x, (std::vector<float>{11.5F, 31.5F}));
  EXPECT_EQ(pair.points.right_y[0], 22.5F);
  EXPECT_TRUE(std::isnan(pair.points.right_y[1]));
  evaluator.seen.raw = {{3, {1, 2}, {3, 4}}};
  EXPECT_EQ(readRefined(0, evaluator, pictures, {}).points.left_x[0], 1.0F) << "what the evaluations saw counts";
}

TEST_F(RefinedReading, FailureLeavesNoFigureAndSaysWhy) {
  evaluator.errorText = "no light";
  const RefinedPair pair = readRefined(kMeasurementFailed, evaluator, pictures, {});
  EXPECT_EQ(pair.problem, "no light");
  for (const Figure& figure : pair.figures) EXPECT_TRUE(figure.values.empty()) << figure.name;
  EXPECT_EQ(pair.refined_left, 1U);
  evaluator.errorText.clear();
  EXPECT_NE(readRefined(polar_status::kTooFewShared, evaluator, pictures, {}).problem, "");
}

TEST_F(RefinedReading, GivesAFramesPointsTheirIds) {
  pictures[0].dots[0].id = 0;
  pictures[0].dots[1].id = 1;
  pictures[1].dots[0].id = 1;
  const RefinedPair pair = readRefined(0, evaluator, pictures, {7, 3});
  EXPECT_EQ(pair.points.left_state, (std::vector{DotState::kClipped, DotState::kRefined}));
  EXPECT_EQ(pair.points.right_state, (std::vector{DotState::kRefined, DotState::kUnclear}));
}

TEST(RefinedReadingOfNothing, HasEveryFigureWithoutAValue) {
  const RefinedPair pair = nothingRefined();
  ASSERT_NE(pair.figure("dy_means"), nullptr);
  for (const Figure& figure : pair.figures) {
    EXPECT_TRUE(figure.values.empty()) << figure.name;
    EXPECT_FALSE(figure.is_own || figure.is_carried) << figure.name;
  }
}

}  // namespace
}  // namespace polarline
