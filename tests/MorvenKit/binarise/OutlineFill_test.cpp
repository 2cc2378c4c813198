#include "MorvenKit/src/binarise/OutlineFill.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using namespace kestrune::morvenkit;

TEST(OutlineFill, DotsAreFilledWithWhite) {
  cv::Mat grey = drawing::sheet(240, 120);
  drawing::dot(grey, 60.2, 60.3, 15);
  drawing::dot(grey, 170.4, 55.1, 22);
  const cv::Mat before = grey.clone();
  const cv::Mat binary = OutlineFill(grey, {});
  EXPECT_EQ(cv::countNonZero(grey != before), 0);
  EXPECT_EQ(cv::countNonZero(binary), cv::countNonZero(binary == 255));
  EXPECT_EQ(binary.at<uchar>(60, 60), 255);
  EXPECT_EQ(binary.at<uchar>(55, 170), 255);
  EXPECT_EQ(binary.at<uchar>(60, 110), 0);
  // The inner border of a one pixel wide outline runs along its own pixels.
  EXPECT_NEAR(cv::countNonZero(binary(cv::Rect(0, 0, 115, 120))), CV_PI * 15 * 15, 70);
  EXPECT_NEAR(cv::countNonZero(binary(cv::Rect(115, 0, 125, 120))), CV_PI * 22 * 22, 100);
}

TEST(OutlineFill, WithoutAMarkerTheEdgesAreLeft) {
  cv::Mat grey = drawing::sheet(60, 50, 40);
  grey(cv::Rect(30, 0, 30, 50)).setTo(200);
  const cv::Mat binary = OutlineFill(grey, {});
  EXPECT_GT(cv::countNonZero(binary), 0);
  EXPECT_LE(cv::countNonZero(binary), 2 * 48);
}
