#include "MorvenKit/src/edges/SobelPercentileEdges.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using kestrune::morvenkit::SobelPercentileEdges;

namespace {

/// A picture of 20 x 20, level 100: 10 x 10 pixels are within the frame of five, 390 is 97.5 %.
cv::Mat flat() { return drawing::sheet(20, 20, 100); }

int edges(cv::Mat image) {
  SobelPercentileEdges(image);
  EXPECT_EQ(cv::countNonZero(image == 200), cv::countNonZero(image));
  return cv::countNonZero(image);
}

}  // namespace

TEST(SobelPercentileEdges, UniformImageHasNone) { EXPECT_EQ(edges(flat()), 0); }

TEST(SobelPercentileEdges, OneSpotHasFourNeighbours) {
  cv::Mat image = flat();
  image.at<uchar>(10, 10) = 150;
  EXPECT_EQ(edges(image.clone()), 4);
  SobelPercentileEdges(image);
  EXPECT_EQ(image.at<uchar>(10, 9), 200);
  EXPECT_EQ(image.at<uchar>(10, 11), 200);
  EXPECT_EQ(image.at<uchar>(9, 10), 200);
  EXPECT_EQ(image.at<uchar>(11, 10), 200);
  EXPECT_EQ(image.at<uchar>(10, 10), 0);
}

TEST(SobelPercentileEdges, ThresholdIsTheFirstBinWhoseSumExceedsTheShare) {
  // Three far spots of 150 give 12 magnitudes of 50: 388 zeros do not exceed 390, so the threshold is bin 50 and
  // nothing is above.
  cv::Mat image = flat();
  for (const cv::Point& p : {cv::Point(7, 7), cv::Point(12, 7), cv::Point(7, 12)}) image.at<uchar>(p) = 150;
  EXPECT_EQ(edges(image.clone()), 0);
  // A fourth spot of 160: its 4 magnitudes of 60 are above bin 50, which 384 + 12 pixels reach.
  image.at<uchar>(12, 12) = 160;
  EXPECT_EQ(edges(image), 4);
}

TEST(SobelPercentileEdges, SumMustExceedTheShareNotReachIt) {
  // 400 - 10 zeros are just 390 and do not exceed it; 400 - 9 = 391 do. Spots at the frame's edge count with the
  // neighbours that lie within.
  cv::Mat image = flat();
  image.at<uchar>(7, 7) = 150;
  image.at<uchar>(7, 12) = 150;
  image.at<uchar>(14, 4) = 150;  // one neighbour within: (5, 14)
  EXPECT_EQ(edges(image.clone()), 9);
  image.at<uchar>(12, 4) = 150;
  EXPECT_EQ(edges(image), 0);
}

TEST(SobelPercentileEdges, MagnitudesAreRounded) {
  // Differences of 1 and 1: 1.414 rounds to 1, as much as a single difference of 1; 1 and 2: 2.236 to 2; 2 and 2: 2.83
  // to 3. Ten corners of magnitude 1.41 would be above nine of 1 if they were not rounded.
  cv::Mat image = flat();
  for (int x = 5; x < 15; ++x) image.at<uchar>(8, x) = 101;  // rows 7 and 9: 1 each
  image.at<uchar>(7, 10) = 101;
  image.at<uchar>(12, 7) = 103;
  EXPECT_EQ(edges(image), 4);
}

TEST(SobelPercentileEdges, FiveOuterRowsAndColumnsCountAsZero) {
  cv::Mat image = flat();
  image.at<uchar>(10, 4) = 200;  // gives (5, 10) only
  image.at<uchar>(4, 10) = 200;  // gives (10, 5) only
  image.at<uchar>(15, 9) = 200;  // gives (9, 14) only
  image.at<uchar>(9, 15) = 200;  // gives (14, 9) only
  image.at<uchar>(2, 2) = 255;
  SobelPercentileEdges(image);
  EXPECT_EQ(cv::countNonZero(image), 4);
  for (const cv::Point& p : {cv::Point(5, 10), cv::Point(10, 5), cv::Point(9, 14), cv::Point(14, 9)})
    EXPECT_EQ(image.at<uchar>(p), 200);
}

TEST(SobelPercentileEdges, TheGreatestMagnitudeHasABin) {
  // Differences of 255 both ways: 360.6.
  cv::Mat image = cv::Mat::zeros(20, 20, CV_8UC1);
  image.at<uchar>(10, 11) = 255;
  image.at<uchar>(11, 10) = 255;
  EXPECT_GT(edges(image), 0);
}

TEST(SobelPercentileEdges, ImagesWithoutAnInsideAreBlank) {
  cv::Mat image = drawing::sheet(10, 10, 7);
  image.at<uchar>(5, 5) = 200;
  EXPECT_EQ(edges(image), 0);
}
