#include "MorvenKit/src/binarise/LocalThreshold.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Drawing.h"
#include "MorvenKit/src/binarise/LocalOtsuBinarize.h"

using namespace kestrune::morvenkit;

namespace {

cv::Mat dots(int cols, int rows) {
  cv::Mat image = drawing::sheet(cols, rows);
  for (int y = 25; y < rows - 12; y += 45) {
    for (int x = 25; x < cols - 12; x += 45) drawing::dot(image, x + 0.3, y + 0.2, 11);
  }
  return image;
}

EllipseDetectorParams blocks(int size) {
  EllipseDetectorParams params;
  params.bin_blocksize = size;
  return params;
}

/// Weighted sum of a 3 x 3 neighbourhood, mirrored at the border pixels, over `divisor`, rounded.
cv::Mat weighted(const cv::Mat& image, const std::vector<int>& weights, int divisor) {
  const auto mirrored = [](int i, int size) { return i < 0 ? -i : i >= size ? 2 * size - 2 - i : i; };
  cv::Mat result(image.size(), CV_8UC1);
  for (int y = 0; y < image.rows; ++y) {
    for (int x = 0; x < image.cols; ++x) {
      int sum = divisor / 2;
      for (int k = 0; k < 9; ++k) {
        const int value = image.at<uchar>(mirrored(y + k / 3 - 1, image.rows), mirrored(x + k % 3 - 1, image.cols));
        sum += weights[static_cast<std::size_t>(k)] * value;
      }
      result.at<uchar>(y, x) = static_cast<uchar>(std::clamp(sum / divisor, 0, 255));
    }
  }
  return result;
}

const std::vector<int> kSmooth = {1, 2, 1, 2, 4, 2, 1, 2, 1}, kSharpen = {0, -1, 0, -1, 5, -1, 0, -1, 0};

}  // namespace

TEST(LocalThreshold, ChainOfSteps) {
  cv::Mat image = dots(320, 210), noise(image.size(), CV_8SC1);
  cv::RNG(11).fill(noise, cv::RNG::NORMAL, 0, 25);
  cv::add(image, noise, image, cv::noArray(), CV_8U);
  cv::Mat expected = weighted(weighted(image, kSmooth, 16), kSharpen, 1);
  cv::createCLAHE(1.0, {3, 2})->apply(expected, expected);
  expected = weighted(expected, kSmooth, 16);
  LocalOtsuBinarize(expected, expected, cv::INTER_CUBIC, 110);
  EXPECT_EQ(cv::countNonZero(LocalThreshold(image, blocks(110)) != expected), 0);
}

TEST(LocalThreshold, DotsAreBlackOnWhite) {
  const cv::Mat image = dots(220, 210);
  const cv::Mat binary = LocalThreshold(image, blocks(110));
  const cv::Mat truth = drawing::split(image);
  EXPECT_EQ(binary.type(), CV_8UC1);
  EXPECT_EQ(cv::countNonZero(binary) + cv::countNonZero(binary == 0), 220 * 210);
  EXPECT_EQ(cv::countNonZero(binary == 255), cv::countNonZero(binary));
  // Away from the rims there is nothing to argue about.
  cv::Mat rims;
  cv::morphologyEx(truth, rims, cv::MORPH_GRADIENT, cv::Mat::ones(5, 5, CV_8U));
  EXPECT_EQ(cv::countNonZero((binary != truth) & (rims == 0)), 0);
}

TEST(LocalThreshold, TheInputIsNotTouched) {
  const cv::Mat image = dots(220, 210);
  const cv::Mat before = image.clone();
  LocalThreshold(image, blocks(110));
  EXPECT_EQ(cv::countNonZero(image != before), 0);
}

TEST(LocalThreshold, AShadowAcrossTheImageIsEvenedOut) {
  cv::Mat image = dots(400, 210);
  for (int x = 0; x < 400; ++x) image.col(x) *= 1.0 - 0.8 * x / 399.0;
  const cv::Mat binary = LocalThreshold(image, blocks(100));
  for (int y = 25; y < 198; y += 45) {
    for (int x = 25; x < 388; x += 45) {
      EXPECT_EQ(binary.at<uchar>(y, x), 0) << x << ", " << y;
      EXPECT_EQ(binary.at<uchar>(y, x + 20), 255) << x << ", " << y;
    }
  }
}

TEST(LocalThreshold, FillBlobsChangesNothingHere) {
  const cv::Mat image = dots(220, 210);
  EllipseDetectorParams params = blocks(110);
  const cv::Mat filled = LocalThreshold(image, params);
  params.fill_blobs = false;
  EXPECT_EQ(cv::countNonZero(LocalThreshold(image, params) != filled), 0);
}

class LocalThresholdTooSmall : public testing::TestWithParam<cv::Size> {};

TEST_P(LocalThresholdTooSmall, NamesTheSizeAndTheLeastOne) {
  try {
    LocalThreshold(drawing::sheet(GetParam().width, GetParam().height), blocks(50));
    FAIL() << "nothing thrown";
  } catch (const cv::Exception& error) {
    EXPECT_NE(error.err.find("99"), std::string::npos);
    EXPECT_NE(error.err.find("100"), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(Sides, LocalThresholdTooSmall,
                         testing::Values(cv::Size(99, 300), cv::Size(300, 99), cv::Size(99, 99)));

TEST(LocalThreshold, OneHundredPixelsAreEnough) {
  EXPECT_EQ(LocalThreshold(drawing::sheet(100, 100), blocks(100)).size(), cv::Size(100, 100));
}

TEST(LocalThreshold, BlockAboveTheWidthIsRefused) {
  EXPECT_THROW(LocalThreshold(drawing::sheet(150, 150), blocks(200)), cv::Exception);
}
