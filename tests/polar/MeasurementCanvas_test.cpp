#include "polar/MeasurementCanvas.h"

#include <gtest/gtest.h>

namespace {

const cv::Vec3b kRed(0, 0, 255);

cv::Vec3b at(const MeasurementCanvas& canvas, int column, int row) {
  return canvas.picture().at<cv::Vec3b>(row, column);
}

TEST(MeasurementCanvas, GreyPairStandsSideBySideInThreeChannels) {
  const MeasurementCanvas canvas(cv::Mat(4, 5, CV_8UC1, cv::Scalar(10)), cv::Mat(4, 5, CV_8UC1, cv::Scalar(20)));
  ASSERT_EQ(canvas.picture().size(), cv::Size(10, 4));
  ASSERT_EQ(canvas.picture().type(), CV_8UC3);
  EXPECT_EQ(at(canvas, 4, 3), cv::Vec3b(10, 10, 10));
  EXPECT_EQ(at(canvas, 5, 0), cv::Vec3b(20, 20, 20));
}

TEST(MeasurementCanvas, BothHalvesOfASixteenBitPairShareOneStretch) {
  const MeasurementCanvas canvas(cv::Mat(4, 5, CV_16UC1, cv::Scalar(1000)), cv::Mat(4, 5, CV_16UC1, cv::Scalar(3000)));
  EXPECT_EQ(at(canvas, 0, 0), cv::Vec3b(0, 0, 0));
  EXPECT_EQ(at(canvas, 9, 0), cv::Vec3b(255, 255, 255));
}

TEST(MeasurementCanvas, ColoursTurnGrey) {
  const cv::Mat blue(4, 5, CV_8UC3, cv::Scalar(255, 0, 0));
  EXPECT_EQ(at(MeasurementCanvas(blue, blue), 2, 2), cv::Vec3b(29, 29, 29));
}

TEST(MeasurementCanvas, ImagesOfDifferentSizeOrTypeAreRefused) {
  const cv::Mat image = cv::Mat::zeros(4, 5, CV_8UC1);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat::zeros(4, 6, CV_8UC1)), cv::Exception);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat::zeros(4, 5, CV_16UC1)), cv::Exception);
}

TEST(MeasurementCanvas, EmptyImageLeavesItBlack) {
  const cv::Mat image(4, 5, CV_16UC1, cv::Scalar(50));
  EXPECT_EQ(MeasurementCanvas(image, cv::Mat()).picture().size(), cv::Size(10, 4));
  EXPECT_TRUE(MeasurementCanvas(cv::Mat(), image).picture().empty());
}

TEST(MeasurementCanvas, ChosenPointGetsACircleAndItsId) {
  const cv::Mat black = cv::Mat::zeros(120, 200, CV_8UC1);
  MeasurementCanvas canvas(black, black);
  canvas.markPoint(Side::kRight, 12, {50.4, 60.6});
  // Radius 2 round (250, 61), the text to the right of (270, 66).
  EXPECT_EQ(at(canvas, 252, 61), kRed);
  EXPECT_EQ(at(canvas, 248, 61), kRed);
  EXPECT_EQ(at(canvas, 250, 61), cv::Vec3b(0, 0, 0));
  const cv::Mat text = canvas.picture()(cv::Rect(270, 40, 50, 30));
  EXPECT_GT(cv::countNonZero(text.reshape(1)), 20);
  EXPECT_EQ(cv::countNonZero(canvas.picture()(cv::Rect(0, 0, 200, 120)).clone().reshape(1)), 0);
}

TEST(MeasurementCanvas, EdgesAreGreenOnTheLeftAndBlueOnTheRight) {
  const cv::Mat black = cv::Mat::zeros(60, 80, CV_8UC1);
  MeasurementCanvas canvas(black, black);
  canvas.markEdge(Side::kLeft, {{20.0F, 30.0F}});
  canvas.markEdge(Side::kRight, {{20.0F, 30.0F}});
  EXPECT_EQ(at(canvas, 21, 30), cv::Vec3b(0, 255, 0));
  EXPECT_EQ(at(canvas, 101, 30), cv::Vec3b(255, 0, 0));
}

TEST(MeasurementCanvas, EdgesAreRoundedToTheNearestPixel) {
  const cv::Mat black = cv::Mat::zeros(60, 80, CV_8UC1);
  MeasurementCanvas canvas(black, black);
  canvas.markEdge(Side::kRight, {{20.45F, 30.45F}});
  // A circle of radius 1 round (100, 30).
  EXPECT_EQ(at(canvas, 99, 30), cv::Vec3b(255, 0, 0));
  EXPECT_EQ(at(canvas, 100, 29), cv::Vec3b(255, 0, 0));
  EXPECT_EQ(at(canvas, 102, 30), cv::Vec3b(0, 0, 0));
  EXPECT_EQ(at(canvas, 100, 32), cv::Vec3b(0, 0, 0));
}

}  // namespace
