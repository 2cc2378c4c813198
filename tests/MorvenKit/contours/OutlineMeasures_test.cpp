#include "MorvenKit/OutlineMeasures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <string>
#include <vector>

namespace {

using kestrune::morvenkit::measureOutline;
using kestrune::morvenkit::OutlineMeasures;
using Outline = std::vector<cv::Point>;

/// The traced outlines of blobs of every form: discs, specks, lines, noise.
std::vector<Outline> tracedOutlines() {
  cv::Mat picture = cv::Mat::zeros(400, 600, CV_8UC1);
  for (int radius = 0; radius < 40; ++radius) {
    cv::circle(picture, {15 * radius % 560 + 20, 11 * radius % 340 + 20}, radius / 3, 255, cv::FILLED);
  }
  cv::line(picture, {3, 380}, {300, 397}, 255);
  cv::Mat noise(200, 280, CV_8UC1);
  cv::RNG(5).fill(noise, cv::RNG::UNIFORM, 0, 256);
  cv::threshold(noise, picture(cv::Rect(310, 190, 280, 200)), 120, 255, cv::THRESH_BINARY);
  std::vector<Outline> outlines;
  cv::findContours(picture, outlines, cv::RETR_LIST, cv::CHAIN_APPROX_NONE);
  return outlines;
}

}  // namespace

struct OutlineCase {
  std::string name;
  Outline outline;
  double area, perimeter;
};

class OutlineMeasuresByHand : public testing::TestWithParam<OutlineCase> {};

TEST_P(OutlineMeasuresByHand, AreAreaAndPerimeter) {
  const OutlineMeasures measures = measureOutline(GetParam().outline);
  EXPECT_EQ(measures.area, GetParam().area);
  EXPECT_EQ(measures.perimeter, GetParam().perimeter);
}

INSTANTIATE_TEST_SUITE_P(
    Outlines, OutlineMeasuresByHand,
    testing::Values(OutlineCase{"Nothing", {}, 0.0, 0.0}, OutlineCase{"APoint", {{7, 9}}, 0.0, 0.0},
                    OutlineCase{"TwoPoints", {{7, 9}, {8, 9}}, 0.0, 2.0},
                    OutlineCase{"APixelsSquare", {{4, 4}, {5, 4}, {5, 5}, {4, 5}}, 1.0, 4.0},
                    OutlineCase{"TheSameTheOtherWay", {{4, 5}, {5, 5}, {5, 4}, {4, 4}}, 1.0, 4.0},
                    OutlineCase{
                        "ADiamond", {{1, 0}, {2, 1}, {1, 2}, {0, 1}}, 2.0, 4.0 * static_cast<double>(std::sqrt(2.0F))},
                    OutlineCase{"LongSides", {{0, 0}, {30, 0}, {30, 40}}, 600.0, 120.0},
                    OutlineCase{"LongSidesAndAShortOne",
                                {{0, 0}, {30, 0}, {30, 40}, {29, 40}},
                                620.0,
                                71.0 + static_cast<double>(std::sqrt(2441.0F))},
                    OutlineCase{"StepsOfTwo", {{0, 0}, {2, 0}, {2, 2}, {0, 2}}, 4.0, 8.0}),
    [](const auto& entry) { return entry.param.name; });

TEST(OutlineMeasures, AreThoseOfOpenCvToTheLastBit) {
  const std::vector<Outline> outlines = tracedOutlines();
  ASSERT_GT(outlines.size(), 500U);
  for (const Outline& outline : outlines) {
    const OutlineMeasures measures = measureOutline(outline);
    EXPECT_EQ(measures.area, cv::contourArea(outline)) << outline.size();
    EXPECT_EQ(measures.area, cv::moments(outline).m00) << outline.size();
    EXPECT_EQ(measures.perimeter, cv::arcLength(outline, true)) << outline.size();
  }
}

TEST(OutlineMeasures, CircularityOfASquareIsAQuarterOfPiAndOfAPointNone) {
  EXPECT_DOUBLE_EQ(measureOutline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}).circularity(), std::numbers::pi / 4);
  EXPECT_TRUE(std::isnan(measureOutline({{3, 3}}).circularity()));
}
