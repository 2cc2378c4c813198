#include "polar/geometry/Triangulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/ExactPair.h"

namespace {

/// No lens at all; failures and their outputs as the test wants them, and a record of what the model was asked.
class ScriptedModel final : public CameraPairModel {
 public:
  bool left_fails = false;
  bool right_fails = false;
  bool marks = true;
  mutable cv::Point2d asked_left;
  mutable cv::Point2d asked_right;
  mutable cv::Point2d asked_ideal;

  bool undistortLeft(const cv::Point2d& raw, cv::Point2d& ideal) const override {
    asked_left = raw;
    ideal = raw;
    return !left_fails;
  }
  bool undistortRight(const cv::Point2d& raw, cv::Point2d& ideal) const override {
    asked_right = raw;
    ideal = raw;
    return !right_fails;
  }
  cv::Point2d distortLeft(const cv::Point2d& ideal) const override {
    asked_ideal = ideal;
    return ideal;
  }
  cv::Point2d distortRight(const cv::Point2d& ideal) const override {
    asked_ideal = ideal;
    return {ideal.x + 0.5, ideal.y};
  }
  bool marksFailures() const override { return marks; }
};

EvaluationCameras plainCameras() {
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 700.3, 0, 320.7, 0, 701.1, 255.9, 0, 0, 1);
  return {K, K.clone(), cv::Mat::eye(3, 3, CV_64FC1), (cv::Mat_<double>(3, 1) << -60.0, 0.5, 0.25)};
}

/// Rounds to single precision where no optimisation can take it away.
double rounded(double value) {
  const volatile float narrow = static_cast<float>(value);
  return static_cast<double>(narrow);
}

TEST(Triangulation, EquationsWithoutFiniteNumbersGiveNoPoint) {
  const ScriptedModel model;
  const float infinite = std::numeric_limits<float>::infinity();
  for (const cv::Point2f& bad : {cv::Point2f(infinite, 10), cv::Point2f(10, std::nanf(""))}) {
    const auto points = TriangulatePair(bad, {300, 200}, plainCameras(), model);
    ASSERT_EQ(points.size(), 2U);
    for (const cv::Point3f& point : points)
      EXPECT_TRUE(std::isnan(point.x) && std::isnan(point.y) && std::isnan(point.z));
  }
}

TEST(Triangulation, ExactProjectionsThroughBrownLensesGiveThePointBack) {
  const ExactPair exact;
  const BrownPairModel model(ExactPair::floatsOf(exact.rig.left), ExactPair::floatsOf(exact.rig.right));
  for (const scene::Point3& truth : {scene::Point3{10, 20, 500}, {-120, 60, 600}, {90, -80, 420}}) {
    const scene::Point3 truth_right = scene::rightFromLeft(exact.rig, truth);
    const auto points = TriangulatePair(ExactPair::pixelOf(exact.rig.left, truth),
                                        ExactPair::pixelOf(exact.rig.right, truth_right), exact.cameras(), model);
    ASSERT_EQ(points.size(), 2u);
    EXPECT_NEAR(points[0].x, truth.x, 0.01);
    EXPECT_NEAR(points[0].y, truth.y, 0.01);
    EXPECT_NEAR(points[0].z, truth.z, 0.02);
    EXPECT_NEAR(points[1].x, truth_right.x, 0.01);
    EXPECT_NEAR(points[1].y, truth_right.y, 0.01);
    EXPECT_NEAR(points[1].z, truth_right.z, 0.02);
  }
}

TEST(Triangulation, NormalisedCoordinatesReachTheLensInSinglePrecision) {
  const EvaluationCameras cameras = plainCameras();
  const ScriptedModel model;
  TriangulatePair({400.1F, 200.2F}, {310.3F, 201.4F}, cameras, model);
  EXPECT_EQ(model.asked_left.x, rounded((400.1F - 320.7) / 700.3));
  EXPECT_EQ(model.asked_left.y, rounded((200.2F - 255.9) / 701.1));
  EXPECT_EQ(model.asked_right.x, rounded((310.3F - 320.7) / 700.3));
  EXPECT_NE(model.asked_left.x, (400.1F - 320.7) / 700.3);
}

/// The same system solved by the library's OpenCV decomposition, every rounding set down as a step; not narrowed yet.
cv::Point3d solvedApart(const cv::Point2f& left, const cv::Point2f& right, const EvaluationCameras& cameras) {
  const auto undistorted = [&](float value, double focal, double centre) {
    return rounded(rounded((value - centre) / focal) * focal + centre);
  };
  const cv::Mat& K = cameras.left_K;
  const double fx = K.at<double>(0, 0), fy = K.at<double>(1, 1), cx = K.at<double>(0, 2), cy = K.at<double>(1, 2);
  const std::array<double, 4> pixels = {undistorted(left.x, fx, cx), undistorted(left.y, fy, cy),
                                        undistorted(right.x, fx, cx), undistorted(right.y, fy, cy)};
  cv::Mat P1 = cv::Mat::zeros(3, 4, CV_64FC1);
  cv::Mat P2 = cv::Mat::zeros(3, 4, CV_64FC1);
  K.copyTo(P1.colRange(0, 3));
  K.copyTo(P2.colRange(0, 3));
  cv::Mat(K * cameras.T).copyTo(P2.col(3));
  cv::Mat A(4, 4, CV_64FC1);
  A.row(0) = pixels[0] * P1.row(2) - P1.row(0);
  A.row(1) = pixels[1] * P1.row(2) - P1.row(1);
  A.row(2) = pixels[2] * P2.row(2) - P2.row(0);
  A.row(3) = pixels[3] * P2.row(2) - P2.row(1);
  cv::Mat w, u, vt;
  cv::SVDecomp(A, w, u, vt, cv::SVD::FULL_UV);
  const auto component = [&](int k) { return rounded(vt.at<double>(3, k)) / vt.at<double>(3, 3); };
  return {component(0), component(1), component(2)};
}

TEST(Triangulation, EveryRoundingStepIsThere) {
  const EvaluationCameras cameras = plainCameras();
  const ScriptedModel model;
  for (int k = 0; k < 40; ++k) {
    const float t = static_cast<float>(k);
    const cv::Point2f left(400.1F + 1.37F * t, 200.2F - 2.11F * t);
    const cv::Point2f right(310.3F + 1.29F * t, 201.4F - 2.09F * t);
    const cv::Point3d expected = solvedApart(left, right, cameras);
    const cv::Point3f point = TriangulatePair(left, right, cameras, model)[0];
    EXPECT_EQ(point.x, static_cast<float>(expected.x)) << k;
    EXPECT_EQ(point.y, static_cast<float>(expected.y)) << k;
    EXPECT_EQ(point.z, static_cast<float>(expected.z)) << k;
  }
}

TEST(Triangulation, RightPointComesFromTheLeftOneBeforeItIsNarrowed) {
  const EvaluationCameras cameras = plainCameras();
  const ScriptedModel model;
  int rounded_away = 0;
  for (int k = 0; k < 40; ++k) {
    const float t = static_cast<float>(k);
    const cv::Point2f left(400.1F + 1.37F * t, 200.2F - 2.11F * t);
    const cv::Point2f right(310.3F + 1.29F * t, 201.4F - 2.09F * t);
    const cv::Point3d wide = solvedApart(left, right, cameras);
    const auto points = TriangulatePair(left, right, cameras, model);
    EXPECT_EQ(points[1].x, static_cast<float>(wide.x - 60.0)) << k;
    EXPECT_EQ(points[1].y, static_cast<float>(wide.y + 0.5)) << k;
    EXPECT_EQ(points[1].z, static_cast<float>(wide.z + 0.25)) << k;
    if (points[1].x != points[0].x - 60.0F) ++rounded_away;
  }
  EXPECT_GT(rounded_away, 0) << "no point could tell the difference";
}

struct FailureCase {
  const char* name;
  bool left_fails;
  bool right_fails;
  const char* printed;
  std::size_t points;
};

class TriangulationFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(TriangulationFailure, NamesTheLeftPointAndPutsZerosInFront) {
  ScriptedModel model;
  model.left_fails = GetParam().left_fails;
  model.right_fails = GetParam().right_fails;
  const ConsoleCapture console;
  const auto points = TriangulatePair({400.5F, 200.25F}, {310.5F, 201.75F}, plainCameras(), model);
  EXPECT_EQ(console.out(), GetParam().printed);
  ASSERT_EQ(points.size(), GetParam().points);
  for (std::size_t k = 0; k + 2 < points.size(); ++k) EXPECT_EQ(points[k], cv::Point3f(0, 0, 0));
  EXPECT_GT(points.back().z, 100.0F);
}

INSTANTIATE_TEST_SUITE_P(Sides, TriangulationFailure,
                         testing::Values(FailureCase{"None", false, false, "", 2},
                                         FailureCase{"Left", true, false, "irl_err: 400.5 200.25\n", 4},
                                         FailureCase{"Right", false, true, "irr_err: 400.5 200.25\n", 4},
                                         FailureCase{"Both", true, true,
                                                     "irl_err: 400.5 200.25\nirr_err: 400.5 200.25\n", 6}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(Triangulation, BrownGoesOnWithWhatAFailedUndistortionLeaves) {
  ScriptedModel model;
  model.marks = false;
  model.left_fails = true;
  model.right_fails = true;
  const ConsoleCapture console;
  EXPECT_EQ(TriangulatePair({400.5F, 200.25F}, {310.5F, 201.75F}, plainCameras(), model).size(), 2u);
  EXPECT_EQ(console.out(), "");
}

TEST(Triangulation, MissingCameraMatrixIsAnError) {
  EvaluationCameras cameras = plainCameras();
  cameras.left_K = cv::Mat();
  EXPECT_THROW(TriangulatePair({1, 2}, {3, 4}, cameras, ScriptedModel()), cv::Exception);
}

TEST(TriangulationPrediction, GoesThroughTheLensAndTheMatrixOfItsOwnSide) {
  const cv::Mat K = plainCameras().left_K;
  const ScriptedModel model;
  const cv::Point2f right = predictRightPixel({50.0F, -20.0F, 400.0F}, K, model);
  EXPECT_EQ(right.x, static_cast<float>((0.125 + 0.5) * 700.3 + 320.7));
  EXPECT_EQ(right.y, static_cast<float>(rounded(-0.05F) * 701.1 + 255.9));
  const cv::Point2f left = predictLeftPixel({50.0F, -20.0F, 400.0F}, K, model);
  EXPECT_EQ(left.x, static_cast<float>(0.125 * 700.3 + 320.7));
}

TEST(TriangulationPrediction, ZeroPointIsMarkedOnTheRightOfAModelThatMarksFailures) {
  const cv::Mat K = plainCameras().left_K;
  ScriptedModel model;
  EXPECT_EQ(predictRightPixel({0, 0, 0}, K, model), cv::Point2f(0, 0));
  EXPECT_TRUE(std::isnan(predictLeftPixel({0, 0, 0}, K, model).x));
  model.marks = false;
  EXPECT_TRUE(std::isnan(predictRightPixel({0, 0, 0}, K, model).x));
}

TEST(TriangulationPrediction, IdealCoordinatesReachTheLensInSinglePrecision) {
  const cv::Mat K = plainCameras().left_K;
  const ScriptedModel model;
  const cv::Point3f point(50.1F, -20.3F, 403.7F);
  const cv::Point2d wide(50.1F / static_cast<double>(403.7F), -20.3F / static_cast<double>(403.7F));
  for (const auto& predict : {predictRightPixel, predictLeftPixel}) {
    predict(point, K, model);
    EXPECT_EQ(model.asked_ideal, cv::Point2d(rounded(wide.x), rounded(wide.y)));
    EXPECT_NE(model.asked_ideal, wide);
  }
}

}  // namespace
