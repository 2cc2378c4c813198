#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <opencv2/imgcodecs.hpp>
#include <sstream>

#include "camera/BrownCamera.h"
#include "support/EvaluatorFixture.h"
#include "support/FrameDiscs.h"

namespace {

/// A grid of discs that two equal cameras 120 apart see at the same pixels. Frame points are taken from it by their
/// expected pixels: four at a distance of 1000 (disparity 120), the fifth at 2000 (disparity 60).
struct FrameEvaluation : public ::testing::Test, public EvaluatorFixture {
  EvaluationCameras cameras;
  CameraFloats lens = {1000, 1000, 640, 512, 0, 0, 0, 0, 0, 0, 0, 0};
  cv::Mat left = discs(discGrid());
  cv::Mat right = left.clone();

  FrameEvaluation() {
    cameras.left_K = (cv::Mat_<double>(3, 3) << 1000, 0, 640, 0, 1000, 512, 0, 0, 1);
    cameras.right_K = cameras.left_K.clone();
    cameras.R = cv::Mat::eye(3, 3, CV_64FC1);
    cameras.T = (cv::Mat_<double>(3, 1) << -120, 0, 0);
    config.Frame_ID = {30, 10, 20, 50, 40};
    config.Frame_IRL = {{341, 352}, {760, 355}, {764, 652}, {340, 650}, {820, 712}};
    config.Frame_IRR = {{220, 353}, {640, 352}, {640, 652}, {219, 652}, {760, 710}};
    // The truth is 2 shorter along the first side, 3 longer along the second.
    config.Frame_3D = {{0, 0, 0}, {418, 0, 0}, {418, 303, 0}, {0, 303, 0}, {660, 560, 1000}};
    config.Frame_ID_DIS = {{1, 2}, {3, 2}, {1, 5}};
    measured = -6;
  }
  PairStatus evaluate(PairEvaluator& target, std::int32_t evalu_model = 0) {
    const BrownCamera camera(lens);
    const std::string description = frameTarget();
    return target.CalFramePrecision({evalu_model, description.c_str(), left, right, cameras}, camera, camera);
  }
  /// Keeps the first `count` frame points.
  void keep(std::size_t count) {
    config.Frame_ID.resize(count);
    config.Frame_IRL.resize(count);
    config.Frame_IRR.resize(count);
    config.Frame_3D.resize(count);
  }
};

TEST_F(FrameEvaluation, DistanceErrorsAgainstTheTruth) {
  PairEvaluator target = evaluator();
  target.figures.frameValues = {9, 9, 9, 9, 9};
  ASSERT_EQ(evaluate(target), 0);
  ASSERT_EQ(target.figures.frameValues.size(), 3U);
  EXPECT_NEAR(target.figures.frameValues[0], 2.0, 0.02);
  EXPECT_NEAR(target.figures.frameValues[1], -3.0, 0.02);
  EXPECT_NEAR(target.figures.frameValues[2], 0.0, 1.0);  // From (-300, -160, 1000) to (360, 400, 2000).
}

TEST_F(FrameEvaluation, ErrorsAreInSinglePrecisionAndPrintedWithEightDecimals) {
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  std::ostringstream expected;
  expected << std::fixed;
  expected.precision(8);
  const std::array<const char*, 3> labels = {"1---2: ", "3---2: ", "1---5: "};
  for (std::size_t k = 0; k < labels.size(); ++k) {
    const double value = target.figures.frameValues[k];
    EXPECT_EQ(value, static_cast<double>(static_cast<float>(value)));
    expected << labels[k] << static_cast<float>(value) << '\n';
  }
  EXPECT_NE(console.out().find(expected.str()), std::string::npos) << console.out();
}

TEST_F(FrameEvaluation, LengthsAreSquaredAndRootedInDouble) {
  config.Frame_ID_DIS.clear();
  for (std::int32_t a = 1; a <= 5; ++a) {
    for (std::int32_t b = 1; b <= 5; ++b) config.Frame_ID_DIS.push_back({a, b});
  }
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  int told_apart = 0;
  for (std::size_t k = 0; k < 25; ++k) {
    const std::size_t a = k / 5, b = k % 5;
    const PairPointRecord& first = target.figures.pairPoints[a];
    const PairPointRecord& second = target.figures.pairPoints[b];
    const cv::Point3f apart(first.x - second.x, first.y - second.y, first.z - second.z);
    const auto& true_first = config.Frame_3D[a];
    const auto& true_second = config.Frame_3D[b];
    const double true_length = cv::norm(
        cv::Point3d(true_first[0] - true_second[0], true_first[1] - true_second[1], true_first[2] - true_second[2]));
    EXPECT_EQ(target.figures.frameValues[k],
              static_cast<double>(static_cast<float>(cv::norm(cv::Point3d(apart)) - true_length)));
    const float narrow = std::sqrt(apart.x * apart.x + apart.y * apart.y + apart.z * apart.z);
    if (target.figures.frameValues[k] != static_cast<double>(static_cast<float>(narrow - true_length))) ++told_apart;
  }
  EXPECT_GT(told_apart, 5);
}

TEST_F(FrameEvaluation, TrueDifferencesAreTakenAsFloats) {
  keep(2);
  config.Frame_3D = {{16777217, 0, 0}, {0, 0, 0}};
  config.Frame_ID_DIS = {{1, 2}};
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  EXPECT_NEAR(target.figures.frameValues[0], 420.0 - 16777216.0, 0.5);
}

TEST_F(FrameEvaluation, RecordsHaveTheFramesIdsAndPoints) {
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  ASSERT_EQ(target.figures.pairPoints.size(), 5U);
  EXPECT_EQ(target.figures.pairPoints[0].id, 30);
  EXPECT_EQ(target.figures.pairPoints[4].id, 40);
  EXPECT_NEAR(target.figures.pairPoints[4].left_x, 820, 0.05);
  EXPECT_NEAR(target.figures.pairPoints[4].right_x, 760, 0.05);
  EXPECT_NEAR(target.figures.pairPoints[4].x, 360, 0.5);
  EXPECT_NEAR(target.figures.pairPoints[4].z, 2000, 1.0);
  EXPECT_EQ(target.figures.distances, nullptr);
  EXPECT_EQ(target.figures.pairPoints[4].right_err, 0.0F);
}

TEST_F(FrameEvaluation, TheBoardIsMeasuredOnceInFullAndItsFailureDoesNotCount) {
  PairEvaluator target = evaluator();
  EXPECT_EQ(evaluate(target, 1), 0);
  EXPECT_EQ(measurements, 1);
  EXPECT_EQ(asked_model, 0);
}

TEST_F(FrameEvaluation, CanvasShowsBothImagesSideBySide) {
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  ASSERT_EQ(target.figures.detect_canvas.size(), cv::Size(2560, 1024));
  ASSERT_EQ(target.figures.detect_canvas.type(), CV_8UC3);
  const cv::Vec3b red(0, 0, 255);
  EXPECT_EQ(target.figures.detect_canvas.at<cv::Vec3b>(652, 762), red);
  EXPECT_EQ(target.figures.detect_canvas.at<cv::Vec3b>(652, 1280 + 642), red);
  EXPECT_EQ(target.figures.detect_canvas.at<cv::Vec3b>(900, 1280 + 100), cv::Vec3b(200, 200, 200));
}

TEST_F(FrameEvaluation, ResidualsReachTheRecords) {
  config.triangulate_residual_switch = 1;
  config.tri_bias_savepng_swithch = 1;
  config.tri_bias_divid = 5.0F;
  std::vector<cv::Point> centres = discGrid();
  std::replace(centres.begin(), centres.end(), cv::Point(640, 652), cv::Point(640, 654));
  right = discs(centres);
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  EXPECT_NEAR(target.figures.pairPoints[2].right_err, 1.0, 0.05);  // The triangulation splits it between the images.
  EXPECT_NEAR(target.figures.pairPoints[0].right_err, 0.0, 0.05);
  EXPECT_EQ(target.figures.tri_max, target.figures.pairPoints[2].right_err);
  const cv::Mat picture = cv::imread(folder.file("0_right_tri.png"), cv::IMREAD_GRAYSCALE);
  EXPECT_EQ(cv::norm(picture, right, cv::NORM_INF), 0.0) << "the residuals' picture is the right image";
}

TEST_F(FrameEvaluation, TwoPointsStillYieldTheirDistanceWhileTheResidualIsOff) {
  keep(2);
  config.Frame_ID_DIS = {{2, 1}};
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  EXPECT_NEAR(target.figures.frameValues.at(0), 2.0, 0.02);
}

TEST_F(FrameEvaluation, AFailingResidualEndsTheFrameWithItsEarlierValues) {
  keep(2);
  config.Frame_ID_DIS = {{2, 1}};
  config.triangulate_residual_switch = 1;
  PairEvaluator target = evaluator();
  target.figures.frameValues = {42};
  EXPECT_EQ(evaluate(target), -9);
  EXPECT_EQ(target.figures.frameValues, (std::vector<double>{42}));
  EXPECT_EQ(target.figures.pairPoints.size(), 2U);
  EXPECT_FALSE(target.figures.detect_canvas.empty());
}

TEST_F(FrameEvaluation, APointThatIsNotFoundStandsAtTheZeroPixelAndSpoilsItsDistances) {
  config.Frame_IRL[1] = {1200, 1000};
  PairEvaluator target = evaluator();
  ASSERT_EQ(evaluate(target), 0);
  EXPECT_EQ(target.figures.pairPoints[1].left_x, 0.0F);
  EXPECT_EQ(target.figures.pairPoints[1].left_y, 0.0F);
  EXPECT_EQ(target.figures.pairPoints[1].id, 10);
  EXPECT_GT(std::abs(target.figures.frameValues[0]), 100.0);
  EXPECT_NEAR(target.figures.frameValues[2], 0.0, 1.0);
}

struct RangeCase {
  const char* name;
  std::function<void(PolarConfig&)> change;
};
class FrameEvaluationOutOfRange : public FrameEvaluation, public ::testing::WithParamInterface<RangeCase> {};

TEST_P(FrameEvaluationOutOfRange, IsRefused) {
  GetParam().change(config);
  PairEvaluator target = evaluator();
  EXPECT_THROW(evaluate(target), std::out_of_range);
}

INSTANTIATE_TEST_SUITE_P(Cases, FrameEvaluationOutOfRange,
                         ::testing::Values(RangeCase{"IdsCountFromOne",
                                                     [](PolarConfig& c) {
                                                       c.Frame_ID_DIS = {{0, 1}};
                                                     }},
                                           RangeCase{"IdBehindTheLast",
                                                     [](PolarConfig& c) {
                                                       c.Frame_ID_DIS = {{1, 6}};
                                                     }},
                                           RangeCase{"IdWithoutRecord",
                                                     [](PolarConfig& c) {
                                                       c.Frame_3D.push_back({1, 2, 3});
                                                       c.Frame_ID_DIS = {{1, 6}};
                                                     }},
                                           RangeCase{"SmallestId",
                                                     [](PolarConfig& c) {
                                                       c.Frame_ID_DIS = {{std::numeric_limits<std::int32_t>::min(), 1}};
                                                     }},
                                           RangeCase{"OneIdOnly", [](PolarConfig& c) { c.Frame_ID_DIS = {{1}}; }},
                                           RangeCase{"TruthOfTwoNumbers",
                                                     [](PolarConfig& c) {
                                                       c.Frame_3D[0] = {1, 2};
                                                     }},
                                           RangeCase{"TruthTooShort", [](PolarConfig& c) { c.Frame_3D.resize(1); }},
                                           RangeCase{"RightPixelsTooFew",
                                                     [](PolarConfig& c) { c.Frame_IRR.resize(2); }}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
