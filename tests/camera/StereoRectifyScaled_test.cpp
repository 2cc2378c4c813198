#include "camera/StereoRectifyScaled.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <random>

#include "Near.h"

namespace {

struct Rig {
  cv::Vec3d rotation;  ///< Axis times angle.
  cv::Vec3d T;
};

const cv::Size kSize(640, 480);
const LensedCamera kLeft{(cv::Mat_<double>(3, 3) << 600, 0, 310, 0, 590, 250, 0, 0, 1), brownUndistortion(cv::Mat())};
const LensedCamera kRight{(cv::Mat_<double>(3, 3) << 580, 0, 330, 0, 585, 235, 0, 0, 1), brownUndistortion(cv::Mat())};
const RectificationRequest kSharedCentre{cv::CALIB_ZERO_DISPARITY, {}, 0.0, 1.0};

cv::Matx33d matrixOf(const cv::Vec3d& axis_angle) {
  cv::Matx33d matrix;
  cv::Rodrigues(axis_angle, matrix);
  return matrix;
}

Rectification rectified(const Rig& rig, const RectificationRequest& request = kSharedCentre) {
  Rectification pair;
  StereoRectifyScaled(kLeft, kRight, kSize, cv::Mat(matrixOf(rig.rotation)), cv::Mat(rig.T), request, pair);
  return pair;
}

cv::Vec2d projected(const cv::Mat& P, const cv::Mat& R, const cv::Vec3d& point) {
  const cv::Vec3d turned = cv::Matx33d(R) * point;
  const cv::Vec3d image = cv::Matx33d(cv::Mat(P, cv::Rect(0, 0, 3, 3))) * turned;
  return {image[0] / image[2], image[1] / image[2]};
}

class StereoRectifyScaledRigs : public testing::TestWithParam<Rig> {};

TEST_P(StereoRectifyScaledRigs, CorrespondingPointsShareARowAndQGivesThePointBack) {
  const Rig rig = GetParam();
  const Rectification pair = rectified(rig);
  const cv::Matx33d R = matrixOf(rig.rotation);
  std::mt19937 random(11);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  for (int n = 0; n < 200; ++n) {
    const double depth = 1500 + 700 * uniform(random);
    const cv::Vec3d point_left(0.4 * depth * uniform(random), 0.3 * depth * uniform(random), depth);
    const cv::Vec2d left = projected(pair.P1, pair.R1, point_left);
    const cv::Vec2d right = projected(pair.P2, pair.R2, R * point_left + rig.T);
    EXPECT_NEAR(left[1], right[1], 1e-9);
    const cv::Vec4d homogeneous = cv::Matx44d(pair.Q) * cv::Vec4d(left[0], left[1], left[0] - right[0], 1);
    const cv::Vec3d common(homogeneous[0] / homogeneous[3], homogeneous[1] / homogeneous[3],
                           homogeneous[2] / homogeneous[3]);
    EXPECT_LE(cv::norm(common - cv::Matx33d(pair.R1) * point_left), 1e-6 * depth);
  }
}

TEST_P(StereoRectifyScaledRigs, BothCamerasTurnIntoOneFrameWithTheBaselineAlongX) {
  const Rig rig = GetParam();
  const Rectification pair = rectified(rig);
  const cv::Matx33d R1(pair.R1);
  const cv::Matx33d R2(pair.R2);
  EXPECT_THAT(cv::Mat(R2 * matrixOf(rig.rotation)), MatNear(R1, 1e-12));
  EXPECT_THAT(cv::Mat(R1 * R1.t()), MatNear(cv::Matx33d::eye(), 1e-12));
  const cv::Vec3d baseline = R2 * rig.T;
  EXPECT_NEAR(std::abs(baseline[0]), cv::norm(rig.T), 1e-10);
  EXPECT_NEAR(baseline[1], 0, 1e-10);
  EXPECT_NEAR(baseline[2], 0, 1e-10);
  EXPECT_NEAR(pair.P2.at<double>(0, 3), baseline[0] * pair.P2.at<double>(0, 0), 1e-6);
}

TEST_P(StereoRectifyScaledRigs, AnOwnCentreForEachColumnStillReprojects) {
  const Rig rig = GetParam();
  const Rectification pair = rectified(rig, {0, {}, 0.0, 1.0});
  const double cx1 = pair.P1.at<double>(0, 2);
  const double cx2 = pair.P2.at<double>(0, 2);
  EXPECT_NE(cx1, cx2);
  const cv::Vec3d point_left(90, -60, 1300);
  const cv::Vec2d left = projected(pair.P1, pair.R1, point_left);
  const cv::Vec2d right = projected(pair.P2, pair.R2, matrixOf(rig.rotation) * point_left + rig.T);
  const cv::Vec4d h = cv::Matx44d(pair.Q) * cv::Vec4d(left[0], left[1], left[0] - right[0], 1);
  EXPECT_LE(cv::norm(cv::Vec3d(h[0], h[1], h[2]) / h[3] - cv::Matx33d(pair.R1) * point_left), 1e-6);
}

INSTANTIATE_TEST_SUITE_P(BaselineToTheLeft, StereoRectifyScaledRigs,
                         testing::Values(Rig{{0.02, -0.05, 0.03}, {-120, 4, -6}}, Rig{{0, 0, 0}, {-120, 0, 0}}));
INSTANTIATE_TEST_SUITE_P(BaselineToTheRight, StereoRectifyScaledRigs,
                         testing::Values(Rig{{-0.1, 0.07, 0.2}, {90, -15, 20}}, Rig{{0.3, 0, 0}, {150, 30, 0}}));

TEST(StereoRectifyScaled, AVerticalBaselineTurnsToTheNegativeSide) {
  // u.x is not above 0, so s is -1.
  const Rectification pair = rectified({{0, 0, 0}, {0, 100, 0}});
  EXPECT_LT(pair.P2.at<double>(0, 3), 0.0);
  EXPECT_THAT(cv::Mat(cv::Matx33d(pair.R2) * cv::Vec3d(0, 100, 0)), MatNear(cv::Vec3d(-100, 0, 0), 1e-12));
}

TEST(StereoRectifyScaled, MatricesByHandForParallelCameras) {
  // No lens, no turn: the mean of the mid-edges is ((320 - cx) / fx, (240 - cy) / fy).
  const Rectification pair = rectified({{0, 0, 0}, {-100, 0, 0}});
  const double a1 = 600.0 / 590.0;
  const double a2 = 580.0 / 585.0;
  const double f1 = 600.0;
  const double f2 = 585.0;
  const double cx1 = 320 - f1 * a1 * (320.0 - 310) / 600;
  const double cx2 = 320 - f2 * a2 * (320.0 - 330) / 580;
  const double cy1 = (480 * a1 / 2 - f1 * (240.0 - 250) / 590) / a1;
  const double cy2 = (480 * a2 / 2 - f2 * (240.0 - 235) / 585) / a2;
  const double f = std::min(f1 / a1, f2 / a2);
  const double cx = (cx1 + cx2) / 2;
  const double cy = (cy1 + cy2) / 2;
  EXPECT_THAT(pair.P1, MatNear(cv::Matx34d(f, 0, cx, 0, 0, f, cy, 0, 0, 0, 1, 0), 1e-9));
  EXPECT_THAT(pair.P2, MatNear(cv::Matx34d(f, 0, cx, -100 * f, 0, f, cy, 0, 0, 0, 1, 0), 1e-9));
  EXPECT_THAT(pair.Q, MatNear(cv::Matx44d(1, 0, 0, -cx, 0, 1, 0, -cy, 0, 0, 0, f, 0, 0, 0.01, 0), 1e-9));
}

TEST(StereoRectifyScaled, AFocalScaleOfTwoDoublesTheFocalLength) {
  const Rig rig{{0.02, -0.05, 0.03}, {-120, 4, -6}};
  const Rectification once = rectified(rig);
  const Rectification twice = rectified(rig, {cv::CALIB_ZERO_DISPARITY, {}, 0.0, 2.0});
  EXPECT_EQ(twice.Q.at<double>(2, 3), 2 * once.Q.at<double>(2, 3));
}

TEST(StereoRectifyScaled, ARotationMayBeItsVector) {
  const Rig rig{{0.02, -0.05, 0.03}, {-120, 4, -6}};
  Rectification pair;
  StereoRectifyScaled(kLeft, kRight, kSize, cv::Mat(rig.rotation), cv::Mat(rig.T).t(), kSharedCentre, pair);
  EXPECT_THAT(pair.R1, MatNear(rectified(rig).R1, 1e-12));
}

TEST(StereoRectifyScaled, OutputsKeepTheirTypeElseBecomeDouble) {
  Rectification pair;
  pair.R1 = cv::Mat::zeros(1, 1, CV_32F);
  pair.Q = cv::Mat::zeros(4, 4, CV_32F);
  StereoRectifyScaled(kLeft, kRight, kSize, cv::Mat::eye(3, 3, CV_64F), cv::Mat(cv::Vec3d(-1, 0, 0)), kSharedCentre,
                      pair);
  EXPECT_EQ(pair.R1.type(), CV_32FC1);
  EXPECT_EQ(pair.R1.size(), cv::Size(3, 3));
  EXPECT_EQ(pair.Q.type(), CV_32FC1);
  EXPECT_EQ(pair.R2.type(), CV_64FC1);
  EXPECT_EQ(pair.P1.type(), CV_64FC1);
  EXPECT_EQ(pair.P2.type(), CV_64FC1);
}

}  // namespace
