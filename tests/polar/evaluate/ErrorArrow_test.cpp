#include "polar/evaluate/ErrorArrow.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>
#include <string>

namespace {

const cv::Scalar kRed(0, 0, 255);
const cv::Scalar kGreen(0, 255, 0);

struct ArrowCase {
  const char* name;
  double error;
  cv::Scalar colour;
  int tip;  ///< Row of the arrow's end: 40.6 and 300 times the error, rounded.
};

class ErrorArrowResidualArrow : public testing::TestWithParam<ArrowCase> {};

TEST_P(ErrorArrowResidualArrow, PointsDownThreeHundredTimesTheError) {
  const ArrowCase& arrow = GetParam();
  const cv::Mat image(120, 60, CV_8UC3, cv::Scalar(70, 80, 90));
  cv::Mat picture = image.clone();
  drawResidual(picture, {30.4F, 40.6F}, arrow.error);

  // A circle of one pixel round the rounded point, then the shaft and the two barbs of three tenths of its length.
  cv::Mat expected = image.clone();
  const cv::Point start(30, 41);
  const cv::Point tip(30, arrow.tip);
  cv::circle(expected, start, 1, kRed, 1, cv::LINE_8);
  cv::arrowedLine(expected, start, tip, arrow.colour, 3, cv::LINE_8, 0, 0.3);
  EXPECT_EQ(cv::norm(picture, expected, cv::NORM_INF), 0.0);
  EXPECT_NE(cv::norm(picture, image, cv::NORM_INF), 0.0);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, ErrorArrowResidualArrow,
    testing::Values(ArrowCase{"NoneIsGreen", 0.0, kGreen, 41}, ArrowCase{"SmallIsGreen", 0.02, kGreen, 47},
                    ArrowCase{"JustBelow", 0.0299999, kGreen, 50}, ArrowCase{"AtTheLimitRed", 0.03, kRed, 50},
                    ArrowCase{"LargeIsRed", 0.1, kRed, 71}, ArrowCase{"BeyondThePicture", 5.0, kRed, 1541}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
