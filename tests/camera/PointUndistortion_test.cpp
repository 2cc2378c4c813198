#include "camera/PointUndistortion.h"

#include <gtest/gtest.h>

#include <opencv2/calib3d.hpp>

#include "FakeCamera.h"
#include "Near.h"

namespace {

const cv::Mat kK = (cv::Mat_<double>(3, 3) << 500, 0, 320, 0, 510, 240, 0, 0, 1);
const cv::Mat kQuarterTurn = (cv::Mat_<double>(3, 3) << 0, -1, 0, 1, 0, 0, 0, 0, 1);  // (x, y) to (-y, x).
const cv::Point3d kPoint(0.08, -0.05, 1);

cv::Vec2d undistorted(const PointUndistortion& undistortion, const cv::Point2d& pixel) {
  cv::Mat normalised;
  undistortion((cv::Mat_<cv::Vec2d>(1, 1) << cv::Vec2d(pixel.x, pixel.y)), normalised, kK, kQuarterTurn);
  return normalised.at<cv::Vec2d>(0);
}

void expectKPointTurned(const cv::Vec2d& found) {
  EXPECT_NEAR(found[0], -kPoint.y, 1e-6);
  EXPECT_NEAR(found[1], kPoint.x, 1e-6);
}

TEST(PointUndistortionBrown, InvertsTheProjection) {
  const cv::Mat D = (cv::Mat_<double>(1, 5) << -0.2, 0.05, 0.001, -0.002, 0.01);
  std::vector<cv::Point2d> pixel;
  cv::projectPoints(std::vector{kPoint}, cv::Vec3d(), cv::Vec3d(), kK, D, pixel);
  expectKPointTurned(undistorted(brownUndistortion(D), pixel[0]));
}

TEST(PointUndistortionFisheye, InvertsTheProjection) {
  const cv::Mat D = (cv::Mat_<double>(1, 4) << -0.02, 0.005, 0.001, -0.002);
  std::vector<cv::Point2d> pixel;
  cv::fisheye::projectPoints(std::vector{kPoint}, pixel, cv::Vec3d(), cv::Vec3d(), kK, D);
  expectKPointTurned(undistorted(fisheyeUndistortion(D), pixel[0]));
}

TEST(PointUndistortionPoly, LeavesTheDistortion) {
  const FakeCamera camera;
  expectKPointTurned(undistorted(polyUndistortion(camera), {320 + 500 * 0.08, 240 - 510 * 0.05}));
  EXPECT_EQ(camera.asked, 1);
}

const cv::Mat kPolyK = (cv::Mat_<double>(3, 3) << 100, 0, 40, 0, 200, 30, 0, 0, 1);

TEST(PointUndistortionUndistortPointsPoly, AsksTheLensAndLeavesThePointAsItWas) {
  const FakeCamera camera;
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2d>(1, 2) << cv::Vec2d(90, 10), cv::Vec2d(40, 30)), normalised, kPolyK, camera,
                      cv::Mat());
  EXPECT_EQ(camera.asked, 2);
  ASSERT_EQ(normalised.type(), CV_64FC2);
  EXPECT_EQ(normalised.at<cv::Vec2d>(0), cv::Vec2d(0.5, -0.1));
  EXPECT_EQ(normalised.at<cv::Vec2d>(1), cv::Vec2d(0, 0));
}

TEST(PointUndistortionUndistortPointsPoly, RotatesTheRayAndDividesByItsDepth) {
  const cv::Mat rotation = (cv::Mat_<double>(3, 3) << 0, 1, 0, 0, 0, 1, 1, 0, 0);  // (x, y, 1) to (y, 1, x).
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2d>(1, 1) << cv::Vec2d(90, 130)), normalised, kPolyK, FakeCamera(), rotation);
  EXPECT_EQ(normalised.at<cv::Vec2d>(0), cv::Vec2d(1, 2));
}

TEST(PointUndistortionUndistortPointsPoly, SinglePrecisionIsNarrowedAtTheEndOnly) {
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 3, 0, 0.1, 0, 7, 0.2, 0, 0, 1);
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2f>(1, 1) << cv::Vec2f(1, 1)), normalised, K, FakeCamera(), cv::Mat());
  ASSERT_EQ(normalised.type(), CV_32FC2);
  EXPECT_EQ(normalised.at<cv::Vec2f>(0),
            cv::Vec2f(static_cast<float>((1 - 0.1) / 3), static_cast<float>((1 - 0.2) / 7)));
}

TEST(PointUndistortionUndistortPointsPoly, AnyOtherTypeThrows) {
  cv::Mat normalised;
  EXPECT_THROW(UndistortPointsPoly(cv::Mat::zeros(1, 4, CV_64FC1), normalised, kPolyK, FakeCamera(), cv::Mat()),
               cv::Exception);
}

}  // namespace
