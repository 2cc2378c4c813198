#include "Tallowfen/src/zernike/PolarityCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <utility>

#include "BoxOutline.h"
#include "StepImage.h"
#include "support/ConsoleCapture.h"

namespace {

using kestrune::belowLocalMean;
using kestrune::Contour;
using kestrune::findContoursByLocalMean;
using kestrune::Polarity;
using kestrune::PolarityCheck;

struct Check {
  explicit Check(const cv::Mat& grey) {
    const cv::Mat below_mean = belowLocalMean(grey, 37);
    findContoursByLocalMean(below_mean, Polarity::kBright, bin, contours, hierarchy);
    before = bin.clone();
    const ConsoleCapture console;
    PolarityCheck(belowLocalMean(grey, 37), bin, contours, candidates, hierarchy);
    printed = console.out();
    inverted = cv::countNonZero(bin != before) > 0;
  }
  cv::Mat bin, before;
  std::vector<Contour> contours, candidates;
  std::vector<cv::Vec4i> hierarchy;
  std::string printed;
  bool inverted = false;
};

/// Discs and a solid ring on a slope, with noise.
cv::Mat noisySlope() {
  cv::Mat image = renderDiscs(150, 2, 40, 60, 12, 120, 90), noise(image.size(), CV_8SC1);
  cv::circle(image, {40, 40}, 4, 90, cv::FILLED);
  for (int x = 0; x < image.cols; ++x) image.col(x) += x / 3;
  cv::RNG(2).fill(noise, cv::RNG::NORMAL, 0, 3);
  cv::add(image, noise, image, cv::noArray(), CV_8U);
  return image;
}

/// Each pixel less the mean of the `block` x `block` pixels around it, rounded; the outermost pixels go on outside.
cv::Mat_<int> aboveMean(const cv::Mat& grey, int block) {
  const int half = block / 2;
  cv::Mat wide;
  cv::copyMakeBorder(grey, wide, half, half, half, half, cv::BORDER_REPLICATE);
  cv::Mat_<int> result(grey.size());
  for (int y = 0; y < grey.rows; ++y) {
    for (int x = 0; x < grey.cols; ++x) {
      result(y, x) = grey.at<uchar>(y, x) - cvRound(cv::mean(wide(cv::Rect(x, y, block, block)))[0]);
    }
  }
  return result;
}

// Bright pixels lie above their mean less 2.5, dark ones 2 or more below it, so that two below the mean is white by
// either rule. The same as by OpenCV's own adaptive threshold.
TEST(PolarityCheckFindContoursByLocalMean, ThresholdIsTheMeanLessTwoAndAHalf) {
  const cv::Mat grey = noisySlope();
  for (const int block : {37, 21}) {
    const cv::Mat_<int> above = aboveMean(grey, block);
    ASSERT_GT(cv::countNonZero(above == -2), 100);
    ASSERT_GT(cv::countNonZero(above == -3), 100);
    cv::Mat bin;
    std::vector<Contour> contours;
    std::vector<cv::Vec4i> hierarchy;
    findContoursByLocalMean(belowLocalMean(grey, block), Polarity::kBright, bin, contours, hierarchy);
    EXPECT_EQ(cv::countNonZero(bin != (above > -3)), 0) << block;
    findContoursByLocalMean(belowLocalMean(grey, block), Polarity::kDark, bin, contours, hierarchy);
    EXPECT_EQ(cv::countNonZero(bin != (above <= -2)), 0) << block;
    for (const auto& [polarity, type] :
         {std::pair(Polarity::kBright, cv::THRESH_BINARY), {Polarity::kDark, cv::THRESH_BINARY_INV}}) {
      cv::Mat expected;
      cv::adaptiveThreshold(grey, expected, 255, cv::ADAPTIVE_THRESH_MEAN_C, type, block, 2.5);
      findContoursByLocalMean(belowLocalMean(grey, block), polarity, bin, contours, hierarchy);
      EXPECT_EQ(cv::countNonZero(bin != expected), 0) << block;
    }
  }
}

// Outlines of one level and the holes in them, every pixel of each: what stands in a hole has no parent.
TEST(PolarityCheckFindContoursByLocalMean, OutlinesHaveTwoLevels) {
  cv::Mat bin;
  std::vector<Contour> contours(3), expected;
  std::vector<cv::Vec4i> hierarchy(5), relatives;
  cv::Mat nested = cv::Mat::zeros(100, 100, CV_8UC1);
  for (const auto& [radius, grey] : {std::pair(30, 200), {22, 0}, {12, 200}}) {
    cv::circle(nested, {50, 50}, radius, grey, cv::FILLED);
  }
  findContoursByLocalMean(belowLocalMean(nested, 21), Polarity::kBright, bin, contours, hierarchy);
  cv::findContours(bin, expected, relatives, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
  EXPECT_EQ(contours, expected);
  EXPECT_EQ(hierarchy, relatives);
  const auto isCore = [](const Contour& contour) { return cv::boundingRect(contour) == cv::Rect(38, 38, 25, 25); };
  const auto core = std::ranges::find_if(contours, isCore);
  ASSERT_NE(core, contours.end());
  EXPECT_EQ(hierarchy[static_cast<std::size_t>(core - contours.begin())][3], -1);
}

// A disc of radius 12 has an outline of some 68 pixels.
TEST(PolarityCheck, BrightDotsStandAsTheyAre) {
  const Check check(renderDiscs(240, 4, 40, 52, 12, 215, 25));
  EXPECT_EQ(check.printed, "*****inner_counter:16\n");
  EXPECT_FALSE(check.inverted);
}

// Dark dots are holes of the bright ground and have a parent, so that none is counted.
TEST(PolarityCheck, DarkDotsAreTheInvertedCase) {
  const Check check(renderDiscs(240, 4, 40, 52, 12, 25, 215));
  EXPECT_EQ(check.printed, "*****inner_counter:0\n");
  EXPECT_TRUE(check.inverted);
  EXPECT_EQ(check.candidates.size(), 16U) << "holes are candidates too";
  EXPECT_EQ(cv::countNonZero(check.bin + check.before != 255), 0);
  EXPECT_EQ(std::ranges::count_if(check.hierarchy, [](const cv::Vec4i& h) { return h[3] == -1; }),
            static_cast<std::ptrdiff_t>(check.contours.size()))
      << "a dark disc of this size has no hole";
}

TEST(PolarityCheck, TenBrightDotsAreEnough) {
  cv::Mat ten = renderDiscs(240, 4, 40, 52, 12, 215, 25);
  ten(cv::Rect(118, 170, 122, 70)).setTo(25);  // Two of the last row,
  ten.col(0).setTo(25);
  ten(cv::Rect(0, 170, 118, 70)).setTo(25);   // the other two,
  ten(cv::Rect(170, 118, 70, 52)).setTo(25);  // one of the third row,
  ten(cv::Rect(170, 66, 70, 52)).setTo(25);   // and one of the second.
  const Check check(ten);
  EXPECT_EQ(check.printed, "*****inner_counter:10\n");
  EXPECT_FALSE(check.inverted);

  ten(cv::Rect(170, 0, 70, 66)).setTo(25);
  const Check nine(ten);
  EXPECT_EQ(nine.printed, "*****inner_counter:9\n");
  EXPECT_TRUE(nine.inverted);
}

// The outline of a disc of radius 10 has 56 pixels: fewer than 60 do not count.
TEST(PolarityCheck, SmallBrightDotsDoNotCount) {
  const Check check(renderDiscs(240, 4, 40, 52, 10, 215, 25));
  EXPECT_EQ(check.printed, "*****inner_counter:0\n");
  EXPECT_TRUE(check.inverted);
}

struct OutlineCase {
  const char* name;
  Contour contour;
  bool counted;
};

class PolarityCheckOutlineOfADot : public testing::TestWithParam<OutlineCase> {};

// Ten of the same, of which none has a parent: all count or none.
TEST_P(PolarityCheckOutlineOfADot, CountsWithinTheLimits) {
  const cv::Mat grey(60, 60, CV_8UC1, cv::Scalar(128));
  cv::Mat bin(60, 60, CV_8UC1, cv::Scalar(7));
  std::vector<Contour> contours(10, GetParam().contour), candidates;
  std::vector<cv::Vec4i> hierarchy(10, cv::Vec4i::all(-1));
  const ConsoleCapture console;
  PolarityCheck(belowLocalMean(grey, 37), bin, contours, candidates, hierarchy);
  EXPECT_EQ(console.out(), GetParam().counted ? "*****inner_counter:10\n" : "*****inner_counter:0\n");
  EXPECT_EQ(candidates.size(), GetParam().counted ? 10U : 0U);
  EXPECT_EQ(bin.at<uchar>(0, 0) == 7, GetParam().counted) << "thresholded anew when none counts";
}

// Boxes of 80 x 28 and 80 x 27 have circularities of 0.603 and 0.593.
INSTANTIATE_TEST_SUITE_P(Ends, PolarityCheckOutlineOfADot,
                         testing::Values(OutlineCase{"SixtyPoints", boxOutline(15, 15), true},
                                         OutlineCase{"FiftyNinePoints", onePointLess(boxOutline(15, 15)), false},
                                         OutlineCase{"FiveHundredPoints", boxOutline(125, 125), true},
                                         OutlineCase{"FiveHundredAndOne", onePointMore(boxOutline(125, 125)), false},
                                         OutlineCase{"RoundEnough", boxOutline(80, 28), true},
                                         OutlineCase{"TooLong", boxOutline(80, 27), false},
                                         OutlineCase{"NoPerimeter", Contour(60, cv::Point(5, 5)), false}),
                         [](const auto& entry) { return entry.param.name; });

// Of ten dots one that has a parent is missing in the count, though a candidate.
TEST(PolarityCheck, DotsWithAParentAreCandidatesOnly) {
  const cv::Mat grey(60, 60, CV_8UC1, cv::Scalar(128));
  cv::Mat bin(60, 60, CV_8UC1, cv::Scalar(7));
  std::vector<Contour> contours(10, boxOutline(15, 15)), candidates;
  std::vector<cv::Vec4i> hierarchy(10, cv::Vec4i::all(-1));
  hierarchy[4][3] = 0;
  const ConsoleCapture console;
  PolarityCheck(belowLocalMean(grey, 37), bin, contours, candidates, hierarchy);
  EXPECT_EQ(console.out(), "*****inner_counter:9\n");
  EXPECT_EQ(candidates.size(), 10U);
  EXPECT_NE(bin.at<uchar>(0, 0), 7);
}

// The whole picture is one bright contour, with an outline too long to be a dot's.
TEST(PolarityCheck, EmptyPictureIsInverted) {
  const Check check(cv::Mat(200, 200, CV_8UC1, cv::Scalar(128)));
  EXPECT_EQ(check.printed, "*****inner_counter:0\n");
  EXPECT_TRUE(check.inverted);
  EXPECT_TRUE(check.contours.empty());
}

}  // namespace
