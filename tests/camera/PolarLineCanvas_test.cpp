#include "camera/PolarLineCanvas.h"

#include <gtest/gtest.h>

namespace {

const cv::Vec3b kGreen(0, 255, 0);
const cv::Vec3b kLeft(10, 20, 30);
const cv::Vec3b kRight(40, 50, 60);

TEST(PolarLineCanvas, HasTheImagesSideBySideAndALineOnEvery32ndRow) {
  const cv::Mat left(97, 50, CV_8UC3, cv::Scalar(10, 20, 30));
  const cv::Mat right(97, 50, CV_8UC3, cv::Scalar(40, 50, 60));
  const cv::Mat canvas = polarLineCanvas(left, right);
  ASSERT_EQ(canvas.size(), cv::Size(100, 97));
  ASSERT_EQ(canvas.type(), CV_8UC3);
  for (int row = 0; row < canvas.rows; ++row) {
    for (int column = 0; column < canvas.cols; ++column) {
      const cv::Vec3b expected = row % 32 == 0 ? kGreen : column < 50 ? kLeft : kRight;
      ASSERT_EQ(canvas.at<cv::Vec3b>(row, column), expected) << row << ", " << column;
    }
  }
  EXPECT_EQ(left.at<cv::Vec3b>(0, 0), kLeft) << "the lines are the canvas's own";
}

TEST(PolarLineCanvas, NoLineBeyondTheLastRow) {
  const cv::Mat image(96, 8, CV_8UC3, cv::Scalar(10, 20, 30));
  const cv::Mat canvas = polarLineCanvas(image, image);
  EXPECT_EQ(canvas.at<cv::Vec3b>(64, 0), kGreen);
  EXPECT_EQ(canvas.at<cv::Vec3b>(95, 0), kLeft);
}

TEST(PolarLineCanvas, ImagesThatDoNotFitThrow) {
  const cv::Mat image(10, 8, CV_8UC3, cv::Scalar(0));
  EXPECT_THROW(polarLineCanvas(image, cv::Mat(10, 9, CV_8UC3, cv::Scalar(0))), cv::Exception);
  EXPECT_THROW(polarLineCanvas(image, cv::Mat(11, 8, CV_8UC3, cv::Scalar(0))), cv::Exception);
  const cv::Mat floats(10, 8, CV_32FC1, cv::Scalar(0));
  EXPECT_THROW(polarLineCanvas(floats, floats), cv::Exception);
}

}  // namespace
