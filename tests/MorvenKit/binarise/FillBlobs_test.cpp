#include "MorvenKit/src/binarise/FillBlobs.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

/// White with a black disc that the right edge of a grey image of 100 columns cuts.
cv::Mat discAcrossColumn100() {
  cv::Mat binary = drawing::sheet(140, 100, 255);
  cv::circle(binary, {95, 50}, 12, 0, cv::FILLED);
  return binary;
}

}  // namespace

TEST(FillBlobs, ImagesOfOneSizeStayAsTheyAre) {
  cv::Mat binary = discAcrossColumn100();
  const cv::Mat before = binary.clone();
  fillBlobs(drawing::sheet(140, 100), {}, binary);
  EXPECT_EQ(cv::countNonZero(binary != before), 0);
}

TEST(FillBlobs, BlobBeyondTheGreyImageIsFilled) {
  cv::Mat binary = discAcrossColumn100();
  cv::circle(binary, {40, 50}, 12, 0, cv::FILLED);
  fillBlobs(drawing::sheet(100, 100), {}, binary);
  EXPECT_EQ(cv::countNonZero(binary(cv::Rect(70, 0, 70, 100)) == 0), 0);
  EXPECT_GT(cv::countNonZero(binary(cv::Rect(0, 0, 70, 100)) == 0), 400);
}

TEST(FillBlobs, OnlyRoundBlobsAreFilled) {
  cv::Mat binary = discAcrossColumn100();
  const cv::Mat before = binary.clone();
  EllipseDetectorParams params;
  params.max_radius = 7.0;  // 59.5 points, the disc has more
  fillBlobs(drawing::sheet(100, 100), params, binary);
  EXPECT_EQ(cv::countNonZero(binary != before), 0);
  params.max_radius = 50.0;
  params.min_circularity = 0.99;
  fillBlobs(drawing::sheet(100, 100), params, binary);
  EXPECT_EQ(cv::countNonZero(binary != before), 0);
}

TEST(FillBlobs, BlobWithoutAFitStays) {
  // Fewer than five points within the grey image.
  cv::Mat binary = discAcrossColumn100();
  const cv::Mat before = binary.clone();
  fillBlobs(drawing::sheet(84, 100), {}, binary);
  EXPECT_EQ(cv::countNonZero(binary != before), 0);
}
