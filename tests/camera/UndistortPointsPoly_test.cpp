#include "camera/UndistortPointsPoly.h"

#include <gtest/gtest.h>

#include "FakeCamera.h"
#include "Near.h"

namespace {

const cv::Mat kK = (cv::Mat_<double>(3, 3) << 100, 0, 40, 0, 200, 30, 0, 0, 1);

TEST(UndistortPointsPoly, AsksTheLensAndLeavesThePointAsItWas) {
  const FakeCamera camera;
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2d>(1, 2) << cv::Vec2d(90, 10), cv::Vec2d(40, 30)), normalised, kK, camera,
                      cv::Mat());
  EXPECT_EQ(camera.asked, 2);
  ASSERT_EQ(normalised.type(), CV_64FC2);
  EXPECT_EQ(normalised.at<cv::Vec2d>(0), cv::Vec2d(0.5, -0.1));
  EXPECT_EQ(normalised.at<cv::Vec2d>(1), cv::Vec2d(0, 0));
}

TEST(UndistortPointsPoly, RotatesTheRayAndDividesByItsDepth) {
  const cv::Mat rotation = (cv::Mat_<double>(3, 3) << 0, 1, 0, 0, 0, 1, 1, 0, 0);  // (x, y, 1) to (y, 1, x).
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2d>(1, 1) << cv::Vec2d(90, 130)), normalised, kK, FakeCamera(), rotation);
  EXPECT_EQ(normalised.at<cv::Vec2d>(0), cv::Vec2d(1, 2));
}

TEST(UndistortPointsPoly, SinglePrecisionIsNarrowedAtTheEndOnly) {
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 3, 0, 0.1, 0, 7, 0.2, 0, 0, 1);
  cv::Mat normalised;
  UndistortPointsPoly((cv::Mat_<cv::Vec2f>(1, 1) << cv::Vec2f(1, 1)), normalised, K, FakeCamera(), cv::Mat());
  ASSERT_EQ(normalised.type(), CV_32FC2);
  EXPECT_EQ(normalised.at<cv::Vec2f>(0),
            cv::Vec2f(static_cast<float>((1 - 0.1) / 3), static_cast<float>((1 - 0.2) / 7)));
}

TEST(UndistortPointsPoly, AnyOtherTypeThrows) {
  cv::Mat normalised;
  EXPECT_THROW(UndistortPointsPoly(cv::Mat::zeros(1, 4, CV_64FC1), normalised, kK, FakeCamera(), cv::Mat()),
               cv::Exception);
}

}  // namespace
