#include "MorvenKit/src/binarise/OutlineThreshold.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using namespace kestrune::morvenkit;

TEST(OutlineThreshold, SparseDotsAreWhiteOnBlack) {
  cv::Mat grey = drawing::sheet(400, 300);
  const std::vector<cv::Point2d> centres = {{80.2, 90.3}, {220.4, 150.1}, {330.3, 220.2}};
  for (const auto& c : centres) drawing::dot(grey, c.x, c.y, 14);
  cv::GaussianBlur(grey, grey, {0, 0}, 0.6);
  const cv::Mat before = grey.clone();
  const cv::Mat binary = OutlineThreshold(grey, {});
  EXPECT_EQ(cv::countNonZero(grey != before), 0);
  EXPECT_EQ(binary.type(), CV_8UC1);
  EXPECT_EQ(cv::countNonZero(binary), cv::countNonZero(binary == 255));
  for (const auto& c : centres) {
    const cv::Mat around = binary(cv::Rect(static_cast<int>(c.x) - 25, static_cast<int>(c.y) - 25, 51, 51));
    EXPECT_NEAR(cv::countNonZero(around), CV_PI * 14 * 14, 45);
    const cv::Moments m = cv::moments(around, true);
    EXPECT_NEAR(m.m10 / m.m00 + static_cast<int>(c.x) - 25, c.x, 0.3);
    EXPECT_NEAR(m.m01 / m.m00 + static_cast<int>(c.y) - 25, c.y, 0.3);
  }
  EXPECT_NEAR(cv::countNonZero(binary), 3 * CV_PI * 14 * 14, 135);
}

TEST(OutlineThreshold, EdgesByThemselvesAreNotWhite) {
  // A straight edge across the picture: strong, but no marker.
  cv::Mat grey = drawing::sheet(400, 300);
  grey(cv::Rect(0, 150, 400, 150)).setTo(30);
  EXPECT_EQ(cv::countNonZero(OutlineThreshold(grey, {})), 0);
}

TEST(OutlineThreshold, LinesOfEveryOtherRowOrColumnAreSmoothedAway) {
  // Three by three smoothing makes 140 of 65 and 215 in turn, nearer to the sheet's 215 than to the dot's 25.
  for (const bool rows : {true, false}) {
    cv::Mat grey = drawing::sheet(120, 120);
    drawing::dot(grey, 60, 60, 14);
    for (int k = 0; k < 6; k += 2) grey(rows ? cv::Rect(45, 80 + k, 30, 1) : cv::Rect(80 + k, 45, 1, 30)).setTo(65);
    const cv::Mat binary = OutlineThreshold(grey, {});
    EXPECT_NEAR(cv::countNonZero(binary), CV_PI * 14 * 14, 45) << rows;
    EXPECT_EQ(cv::countNonZero(binary(rows ? cv::Rect(45, 80, 30, 6) : cv::Rect(80, 45, 6, 30))), 0) << rows;
  }
}
