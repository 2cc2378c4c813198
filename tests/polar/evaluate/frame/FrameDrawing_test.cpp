#include "polar/evaluate/frame/FrameDrawing.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

namespace {

const cv::Vec3b kRed(0, 0, 255);
const cv::Vec3b kGreen(0, 255, 0);
const cv::Vec3b kBlack(0, 0, 0);

frame_drawing::Points onePoint(double x, double y, std::int32_t id) {
  frame_drawing::Points points(1);
  points[0].x = x;
  points[0].y = y;
  points[0].id = id;
  return points;
}

cv::Mat blank() { return cv::Mat::zeros(120, 160, CV_8UC3); }

bool same(const cv::Mat& a, const cv::Mat& b) { return cv::norm(a, b, cv::NORM_INF) == 0.0; }

TEST(FrameDrawing, DetectedCentreIsRedAndItsEdgeGreen) {
  frame_drawing::Points points = onePoint(30.4, 40.6, -1);
  points[0].edge_points = {{60.0F, 70.0F}};
  cv::Mat picture = blank();
  frame_drawing::drawDetected(picture, points);
  EXPECT_EQ(picture.at<cv::Vec3b>(41, 31), kRed);
  EXPECT_EQ(picture.at<cv::Vec3b>(41, 30), kBlack);  // A circle, not a disc.
  EXPECT_EQ(picture.at<cv::Vec3b>(70, 59), kGreen);
  cv::Mat expected = blank();
  cv::circle(expected, {30, 41}, 1, cv::Scalar(0, 0, 255));
  cv::circle(expected, {60, 70}, 1, cv::Scalar(0, 255, 0));
  EXPECT_TRUE(same(picture, expected));
}

TEST(FrameDrawing, HalvesAreRoundedToEven) {
  cv::Mat picture = blank();
  frame_drawing::drawDetected(picture, onePoint(30.5, 41.5, -1));
  cv::Mat expected = blank();
  cv::circle(expected, {30, 42}, 1, cv::Scalar(0, 0, 255));
  EXPECT_TRUE(same(picture, expected));
}

TEST(FrameDrawing, LaterEdgesCoverEarlierCentres) {
  frame_drawing::Points points = onePoint(30, 40, -1);
  points[0].edge_points = {{30.0F, 40.0F}};
  cv::Mat picture = blank();
  frame_drawing::drawDetected(picture, points);
  EXPECT_EQ(picture.at<cv::Vec3b>(40, 31), kGreen);
}

TEST(FrameDrawing, MatchedPointHasItsIdBesideIt) {
  cv::Mat picture = blank();
  frame_drawing::drawMatched(picture, onePoint(30, 80.5, 47));
  cv::Mat expected = blank();
  cv::circle(expected, {30, 80}, 2, cv::Scalar(0, 0, 255));
  cv::putText(expected, "47", {35, 86}, cv::FONT_HERSHEY_SIMPLEX, 2.0, cv::Scalar(0, 0, 255), 2);
  EXPECT_TRUE(same(picture, expected));
}

}  // namespace
