#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "GridDetection.h"
#include "polarline/detect.h"

namespace {

const cv::Mat kGrey(480, 640, CV_8UC1, cv::Scalar(150));
/// The image's grey on a canvas: seven tenths, and 50.
const cv::Vec3b kGround(155, 155, 155);

/// How many pixels of a square about a place have a colour, of which smooth lines leave some.
int countOf(const cv::Mat& picture, const cv::Point& place, int reach, const cv::Scalar& bgr) {
  cv::Mat hits;
  cv::inRange(picture(cv::Rect(place.x - reach, place.y - reach, 2 * reach + 1, 2 * reach + 1)),
              bgr - cv::Scalar::all(60), bgr + cv::Scalar::all(60), hits);
  return cv::countNonZero(hits);
}

const cv::Scalar kMissing(0, 130, 255);
const cv::Scalar kMarker(200, 0, 200);
const cv::Scalar kUnnumbered(0, 0, 230);

TEST(Overlay, DrawsEachDotAtItsPlaceAndLeavesTheRest) {
  const cv::Mat picture = polarline::overlay(kGrey, gridDetection(5, 5, 60.0));
  ASSERT_EQ(picture.cols, 640);
  ASSERT_GT(picture.rows, 480) << "the legend stands below";
  for (int row = 0; row < 5; ++row) {
    for (int column = 0; column < 5; ++column)
      EXPECT_NE(picture.at<cv::Vec3b>(30 + 60 * row, 20 + 60 * column), kGround) << row << ", " << column;
  }
  EXPECT_EQ(picture.at<cv::Vec3b>(400, 500), kGround);
  EXPECT_EQ(picture.at<cv::Vec3b>(10, 600), kGround);
}

TEST(Overlay, MarksMissingDotsMarkersAndEllipsesWithoutANumber) {
  polarline::Detection detection = gridDetection(5, 5, 60.0);
  drop(detection, 12);
  detection.ellipses.push_back({500.0, 200.0, 15.0, 15.0, 0.0, "unknown", false});
  detection.ellipses[0].marker = true;
  const cv::Mat picture = polarline::overlay(kGrey, detection);
  EXPECT_GT(countOf(picture, {20 + 120, 30 + 120}, 20, kMissing), 20);
  EXPECT_EQ(countOf(picture, {20 + 180, 30 + 120}, 20, kMissing), 0);
  EXPECT_GT(countOf(picture, {20, 30}, 19, kMarker), 20);
  EXPECT_GT(countOf(picture, {500, 200}, 18, kUnnumbered), 20);
  EXPECT_EQ(countOf(picture, {20 + 60, 30}, 18, kUnnumbered), 0);
}

// A dot of 2 pixels is enlarged to 8: its place (u, v) is at 4 (u + 1/2) - 1/2.
TEST(Overlay, EnlargesSmallDotsByAWholeNumber) {
  polarline::Detection detection = gridDetection(5, 5, 60.0);
  detection.dot_radius = 2.0;
  detection.ellipses.assign(1, {100.0, 50.0, 2.0, 2.0, 0.0, "unknown", false});
  const cv::Mat picture = polarline::overlay(kGrey, detection);
  EXPECT_EQ(picture.cols, 4 * 640);
  EXPECT_GT(countOf(picture, {402, 202}, 12, kUnnumbered), 10);
}

TEST(Overlay, TakesEveryKindOfPicture) {
  const polarline::Detection detection = gridDetection(3, 3, 60.0);
  for (const int type : {CV_8UC3, CV_8UC4, CV_16UC1, CV_16UC3, CV_32FC1, CV_8UC2}) {
    const cv::Mat picture = polarline::overlay(cv::Mat(480, 640, type, cv::Scalar::all(9)), detection);
    EXPECT_EQ(picture.type(), CV_8UC3) << type;
    EXPECT_EQ(picture.cols, 640) << type;
  }
  EXPECT_TRUE(polarline::overlay({}, detection).empty());
}

}  // namespace
