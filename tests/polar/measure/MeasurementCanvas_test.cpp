#include "polar/measure/MeasurementCanvas.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

namespace {

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

TEST(MeasurementCanvas, EachHalfOfAColouredPairTurnsGreyByItself) {
  const cv::Scalar blue(255, 0, 0, 7);
  const cv::Scalar green(0, 255, 0, 7);
  for (const int type : {CV_8UC3, CV_8UC4}) {
    const MeasurementCanvas canvas(cv::Mat(4, 5, type, blue), cv::Mat(4, 5, type, green));
    ASSERT_EQ(canvas.picture().type(), CV_8UC3);
    EXPECT_EQ(at(canvas, 4, 3), cv::Vec3b(29, 29, 29));
    EXPECT_EQ(at(canvas, 5, 0), cv::Vec3b(150, 150, 150));
  }
}

TEST(MeasurementCanvas, EachPixelIsThatOfTheTwoImagesMadeGrey) {
  cv::Mat noise(9, 40, CV_8UC3);
  cv::RNG(7).fill(noise, cv::RNG::UNIFORM, 0, 256);
  const cv::Mat left = noise.colRange(1, 18);
  const cv::Mat right = noise.colRange(20, 37);
  cv::Mat expected;
  cv::hconcat(left, right, expected);
  cv::cvtColor(expected, expected, cv::COLOR_BGR2GRAY);
  cv::cvtColor(expected, expected, cv::COLOR_GRAY2BGR);
  EXPECT_EQ(cv::norm(MeasurementCanvas(left, right).picture(), expected, cv::NORM_INF), 0.0);
}

TEST(MeasurementCanvas, OtherTypesStayAsTheyAre) {
  const MeasurementCanvas canvas(cv::Mat(4, 5, CV_16UC3, cv::Scalar::all(1000)),
                                 cv::Mat(4, 5, CV_16UC3, cv::Scalar::all(3000)));
  ASSERT_EQ(canvas.picture().type(), CV_16UC3);
  EXPECT_EQ(canvas.picture().at<cv::Vec3w>(0, 9), cv::Vec3w(3000, 3000, 3000));
}

TEST(MeasurementCanvas, ImagesOfDifferentSizeOrTypeAreRefused) {
  const cv::Mat image = cv::Mat::zeros(4, 5, CV_8UC1);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat::zeros(3, 5, CV_8UC1)), cv::Exception);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat::zeros(4, 6, CV_8UC1)), cv::Exception);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat::zeros(4, 5, CV_16UC1)), cv::Exception);
  EXPECT_THROW(MeasurementCanvas(image, cv::Mat(std::vector<int>{4, 5, 1}, CV_8UC1)), cv::Exception);
}

TEST(MeasurementCanvas, EmptyImageLeavesItBlack) {
  const cv::Mat image(4, 5, CV_16UC1, cv::Scalar(50));
  EXPECT_EQ(MeasurementCanvas(image, cv::Mat()).picture().size(), cv::Size(10, 4));
  EXPECT_TRUE(MeasurementCanvas(cv::Mat(), image).picture().empty());
}

/// A pair of differing grey images and the picture that they make side by side.
struct MeasurementCanvasMarked : testing::Test {
  cv::Mat left = cv::Mat(120, 200, CV_8UC1, cv::Scalar(40));
  cv::Mat right = cv::Mat(120, 200, CV_8UC1, cv::Scalar(90));
  cv::Mat expected = cv::Mat(120, 400, CV_8UC3, cv::Scalar::all(40));
  MeasurementCanvas canvas = MeasurementCanvas(left, right);

  MeasurementCanvasMarked() { expected.colRange(200, 400).setTo(cv::Scalar::all(90)); }
  void expectPicture() const { EXPECT_EQ(cv::norm(canvas.picture(), expected, cv::NORM_INF), 0.0); }
};

TEST_F(MeasurementCanvasMarked, UnmarkedItIsTheTwoImages) { expectPicture(); }

TEST_F(MeasurementCanvasMarked, ChosenPointGetsACircleAndItsId) {
  const cv::Scalar red(0, 0, 255);
  canvas.markPoint(Side::kLeft, 7, {30.6, 80.4});
  cv::circle(expected, {31, 80}, 2, red, 1, cv::LINE_8);
  cv::putText(expected, "7", {51, 85}, cv::FONT_HERSHEY_SIMPLEX, 1.0, red, 1, cv::LINE_8);
  expectPicture();
  canvas.markPoint(Side::kRight, 12, {50.4, 60.6});
  cv::circle(expected, {250, 61}, 2, red, 1, cv::LINE_8);
  cv::putText(expected, "12", {270, 66}, cv::FONT_HERSHEY_SIMPLEX, 1.0, red, 1, cv::LINE_8);
  expectPicture();
}

TEST_F(MeasurementCanvasMarked, PointsMoveToTheRightInSinglePrecision) {
  // As a float 51.499992, plus 200, is a tie that ends at 251.5.
  const cv::Scalar red(0, 0, 255);
  canvas.markPoint(Side::kRight, 1, {51.499992, 60});
  cv::circle(expected, {252, 60}, 2, red, 1, cv::LINE_8);
  cv::putText(expected, "1", {272, 65}, cv::FONT_HERSHEY_SIMPLEX, 1.0, red, 1, cv::LINE_8);
  expectPicture();
}

TEST_F(MeasurementCanvasMarked, EdgesAreGreenOnTheLeftAndBlueOnTheRight) {
  canvas.markEdge(Side::kLeft, {{20.4F, 30.6F}, {60.0F, 70.0F}});
  cv::circle(expected, {20, 31}, 1, cv::Scalar(0, 255, 0), 1, cv::LINE_8);
  cv::circle(expected, {60, 70}, 1, cv::Scalar(0, 255, 0), 1, cv::LINE_8);
  expectPicture();
  canvas.markEdge(Side::kRight, {{20.4F, 30.6F}});
  cv::circle(expected, {220, 31}, 1, cv::Scalar(255, 0, 0), 1, cv::LINE_8);
  expectPicture();
  canvas.markEdge(Side::kRight, {});
  expectPicture();
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
