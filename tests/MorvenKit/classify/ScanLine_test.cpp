#include "MorvenKit/src/classify/ScanLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

using kestrune::morvenkit::kVerticalRay;
using kestrune::morvenkit::ScanLine;

namespace {

/// A row of pixels from a text, '#' white; the other rows are black.
cv::Mat rowImage(const std::string& row, int at = 3, int rows = 7) {
  cv::Mat image = cv::Mat::zeros(rows, static_cast<int>(row.size()), CV_8UC1);
  for (std::size_t x = 0; x < row.size(); ++x) {
    if (row[x] == '#') image.at<uchar>(at, static_cast<int>(x)) = 255;
  }
  return image;
}

}  // namespace

TEST(ScanLine, CountsChangesToTheRight) { EXPECT_EQ(ScanLine({0, 3}, {9, 3}, rowImage("..##..##.#")), 5); }

TEST(ScanLine, CountsChangesToTheLeft) { EXPECT_EQ(ScanLine({9, 3}, {0, 3}, rowImage("..##..##.#")), 5); }

TEST(ScanLine, SameValueThroughoutIsZero) { EXPECT_EQ(ScanLine({0, 3}, {9, 3}, rowImage("..........")), 0); }

TEST(ScanLine, OnlyWhatLiesBetweenTheEndsCounts) { EXPECT_EQ(ScanLine({2, 3}, {5, 3}, rowImage("#.##.#.#.#")), 2); }

TEST(ScanLine, SamePointsGiveNoCount) { EXPECT_EQ(ScanLine({4, 3}, {4, 3}, rowImage("..##..##.#")), std::nullopt); }

TEST(ScanLine, VerticalRayIsNotSampled) {
  cv::Mat image = rowImage(".....#....").t();
  EXPECT_EQ(ScanLine({3, 0}, {3, 9}, image), kVerticalRay);
  EXPECT_EQ(kVerticalRay, -1);
}

TEST(ScanLine, AlmostVerticalRayIsSampled) {
  cv::Mat image = cv::Mat::zeros(10, 8, CV_8UC1);
  image.row(5).setTo(255);
  EXPECT_EQ(ScanLine({3, 0}, {3.25F, 9}, image), 2);
  EXPECT_EQ(ScanLine({3.25F, 9}, {3, 0}, image), 2);
}

TEST(ScanLine, DiagonalRunsAlongY) {
  // At |dx| = |dy| the major axis is y: the samples are (0,0) (1,1) ... (4,4).
  cv::Mat image = cv::Mat::zeros(5, 5, CV_8UC1);
  image.at<uchar>(2, 2) = 255;
  EXPECT_EQ(ScanLine({0, 0}, {4, 4}, image), 2);
}

TEST(ScanLine, DiagonalTakesFractionsFromY) {
  // From (0, 0.25) to (4, 4.25): rows 0 to 4, the column of row y is round(y - 0.25). Row 4 is no end of a float 4.25
  // and is sampled at column 4, then the end rounds to the same pixel. Along x the column 0 would be the first of five
  // as well, but row round(x + 0.25): the same pixels; a start at (0, 0.5) tells them apart.
  cv::Mat image = cv::Mat::zeros(6, 6, CV_8UC1);
  image.at<uchar>(1, 1) = 255;
  // Along y: start row round(0.5) = 1, column round(1 - 0.5) = 1 (half away from zero): white first, then black.
  EXPECT_EQ(ScanLine({0, 0.5F}, {4, 4.5F}, image), 1);
}

TEST(ScanLine, SampleAtTheEndIsSkippedForTheRoundedEnd) {
  // Slope -1/4 from (0, 2.4) to (4, 1.4): the sample at x = 4 would be row 1; it is the end's value and skipped, and
  // the end rounds to row 1 too. Both ways one change at x = 4.
  cv::Mat image = cv::Mat::zeros(4, 5, CV_8UC1);
  image.at<uchar>(1, 4) = 255;
  EXPECT_EQ(ScanLine({0, 2.4F}, {4, 1.4F}, image), 1);
}

TEST(ScanLine, EndRoundsHalfToEvenWhereSamplesRoundAway) {
  // End (4, 2.5): the sample there would be row 3, the end itself is row 2. Only row 3 is white, and the sample is
  // skipped.
  cv::Mat image = cv::Mat::zeros(5, 5, CV_8UC1);
  image.at<uchar>(3, 4) = 255;
  EXPECT_EQ(ScanLine({0, 2.0F}, {4, 2.5F}, image), 0);
  image.at<uchar>(2, 4) = 255;
  EXPECT_EQ(ScanLine({0, 2.0F}, {4, 2.5F}, image), 1);
}

TEST(ScanLine, StartRoundsHalfAway) {
  // From x = 1.5: columns 2, 3, 4 (int(3.5) = 3 steps), then the end 5. Column 1 is not sampled.
  EXPECT_EQ(ScanLine({1.5F, 3}, {5, 3}, rowImage(".#....")), 0);
  EXPECT_EQ(ScanLine({1.5F, 3}, {5, 3}, rowImage("..#...")), 1);
}

TEST(ScanLine, NumberOfStepsIsCutNotRounded) {
  // From x = 0.4 to 4.0: |d| + 1 = 4.6, so 4 samples, 0 to 3, then the end 4.
  EXPECT_EQ(ScanLine({0.4F, 3}, {4, 3}, rowImage("#...#")), 2);
  // From 0.4 to 4.3: 4 samples and the end at 4, none at 5.
  EXPECT_EQ(ScanLine({0.4F, 3}, {4.3F, 3}, rowImage("#....#")), 1);
}

TEST(ScanLine, LengthIsFormedInSinglePrecision) {
  // The float below 4, plus 1, is 5: a fifth sample, in row 3, where the line is at 2.5. The end is row 2.
  cv::Mat image = cv::Mat::zeros(5, 5, CV_8UC1);
  image.at<uchar>(3, 4) = 255;
  EXPECT_EQ(ScanLine({0, 2.0F}, {std::nextafter(4.0F, 0.0F), 2.5F}, image), 2);
}

TEST(ScanLine, NoSampleLiesBeyondTheEnd) {
  // From 0.5, rounded to 1: |d| + 1 = 4.7, so columns 1 to 4 and the end at 4. Column 5 is not looked at.
  EXPECT_EQ(ScanLine({0.5F, 3}, {4.2F, 3}, rowImage(".....#")), 0);
}

TEST(ScanLine, EndBetweenPixelsIsAddedOnceMore) {
  // The sample at 4 is not the end's 4.3 as a float; the end rounds to 4 as well. A pixel twice is no change.
  EXPECT_EQ(ScanLine({0, 3}, {4.3F, 3}, rowImage("....#.")), 1);
}

TEST(ScanLine, PointsOutsideGiveNoCount) {
  const cv::Mat image = rowImage("..##..##.#");
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(ScanLine({nan, 3}, {9, 3}, image), std::nullopt);
  EXPECT_EQ(ScanLine({1, 3}, {10, 3}, image), std::nullopt);
  EXPECT_EQ(ScanLine({1, -1}, {5, 3}, image), std::nullopt);
}

TEST(ScanLine, RoundingOutOfTheImageIsLeftOut) {
  // From (0, 10.5) upwards the first sample is y = 11, half a pixel left of column 0: it rounds to column -1, which in
  // memory is the end of the row above.
  cv::Mat image = cv::Mat::zeros(12, 12, CV_8UC1);
  image.at<uchar>(10, 11) = 255;
  EXPECT_EQ(ScanLine({0, 10.5F}, {9, 1.5F}, image), 0);
  image.at<uchar>(10, 1) = 255;
  EXPECT_EQ(ScanLine({0, 10.5F}, {9, 1.5F}, image), 1);
}

// Far from the picture's edge no sample is looked after. Cut out one pixel around the ray, each is.
TEST(ScanLine, IsTheSameFarFromTheEdgeAndBesideIt) {
  cv::Mat binary(64, 64, CV_8UC1);
  cv::RNG random(5);
  random.fill(binary, cv::RNG::UNIFORM, 0, 2);
  for (int k = 0; k < 2000; ++k) {
    const cv::Point2f from(static_cast<float>(random.uniform(80, 400)) / 8,
                           static_cast<float>(random.uniform(80, 400)) / 8);
    const cv::Point2f to(static_cast<float>(random.uniform(10, 50)), static_cast<float>(random.uniform(10, 50)));
    const cv::Point low(cvFloor(std::min(from.x, to.x)) - 1, cvFloor(std::min(from.y, to.y)) - 1);
    const cv::Point high(cvCeil(std::max(from.x, to.x)) + 2, cvCeil(std::max(from.y, to.y)) + 2);
    const cv::Point2f shift(low);
    ASSERT_EQ(ScanLine(from, to, binary), ScanLine(from - shift, to - shift, binary(cv::Rect(low, high))))
        << from << to;
  }
}
