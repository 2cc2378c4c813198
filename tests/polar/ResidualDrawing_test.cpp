#include "polar/ResidualDrawing.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const cv::Vec3b kRed(0, 0, 255);
const cv::Vec3b kGreen(0, 255, 0);

struct ArrowCase {
  const char* name;
  double error;
  bool green;
  int length;
};

class ResidualArrow : public testing::TestWithParam<ArrowCase> {};

TEST_P(ResidualArrow, PointsDownThreeHundredTimesTheError) {
  const ArrowCase& arrow = GetParam();
  cv::Mat picture = cv::Mat::zeros(100, 60, CV_8UC3);
  drawResidual(picture, {30.4F, 40.6F}, arrow.error);
  // The shaft is three pixels wide and runs from the rounded point (30, 41) to its tip; its round end
  // reaches two rows behind the tip.
  const int tip = 41 + arrow.length;
  const cv::Vec3b colour = arrow.green ? kGreen : kRed;
  EXPECT_EQ(picture.at<cv::Vec3b>(41, 30), colour);
  EXPECT_EQ(picture.at<cv::Vec3b>(tip, 30), colour);
  EXPECT_EQ(picture.at<cv::Vec3b>(tip + 3, 30), cv::Vec3b(0, 0, 0));
  EXPECT_EQ(picture.at<cv::Vec3b>(30, 30), cv::Vec3b(0, 0, 0));
}

INSTANTIATE_TEST_SUITE_P(Limits, ResidualArrow,
                         testing::Values(ArrowCase{"SmallIsGreen", 0.02, true, 6},
                                         ArrowCase{"JustBelow", 0.0299999, true, 9},
                                         ArrowCase{"AtTheLimitRed", 0.03, false, 9},
                                         ArrowCase{"LargeIsRed", 0.1, false, 30}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
