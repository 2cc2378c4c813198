#include <gtest/gtest.h>

#include "support/HiddenDot.h"
#include "support/MeasurementFixture.h"

namespace {

struct PointDetection : testing::Test, MeasurementFixture {
  PairStatus detect(PairEvaluator& evaluator) { return evaluator.DetectPairPoints(input(), pair); }
};

TEST_F(PointDetection, PointOfOneImageStaysInItsOwnMap) {
  hideDot(right, rendered.truth().dots[0].ellipse_right);
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.eccentricity = true;
  EXPECT_EQ(detect(evaluator), 0);
  EXPECT_EQ(pair.left_by_id.count(0), 1u);
  EXPECT_EQ(pair.right_by_id.count(0), 0u);
  EXPECT_EQ(pair.left_points.size() + 1, pair.left_by_id.size());
  EXPECT_EQ(pair.left_points.front(), pair.left_by_id.at(1));
  EXPECT_TRUE(evaluator.figures.detect_canvas.empty());
  EXPECT_EQ(console.out().find("use eccentricity!"), std::string::npos);
  EXPECT_EQ(console.out().find("detect point num"), std::string::npos);
}

TEST_F(PointDetection, EmptyImageIsToldOfAndPassedOver) {
  left = cv::Mat();
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_EQ(detect(evaluator), 0);
  EXPECT_NE(console.out().find("load image failed\n"), std::string::npos);
  EXPECT_TRUE(pair.left_by_id.empty());
  EXPECT_FALSE(pair.right_by_id.empty());
  EXPECT_TRUE(pair.left_points.empty());
}

TEST_F(PointDetection, TargetThatCannotBeInitialisedFindsNothing) {
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_EQ(evaluator.DetectPairPoints(input(""), pair), 0);
  EXPECT_TRUE(pair.left_by_id.empty());
  EXPECT_EQ(evaluator.errorText, "");
}

TEST_F(PointDetection, BoardPointsAreNotHandedOver) {
  PairEvaluator evaluator = rendered.evaluator(config);
  const scene::Board& board = rendered.scene().board;
  evaluator.boardPoints.resize(static_cast<std::size_t>(board.rows * board.cols));
  detect(evaluator);
  EXPECT_NE(console.out().find("Calibration board Normal mode"), std::string::npos);
}

TEST_F(PointDetection, SixteenBitImagesAreStretched) {
  left.convertTo(left, CV_16U, 4.0);
  right.convertTo(right, CV_16U, 60.0);
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_EQ(detect(evaluator), 0);
  EXPECT_GT(pair.left_points.size(), rendered.truth().dots.size() / 2);
}

}  // namespace
