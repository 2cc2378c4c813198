#include "MorvenKit/src/binarise/LocalOtsuBinarize.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>

#include "Drawing.h"

using kestrune::morvenkit::LocalOtsuBinarize;

namespace {

/// First value with the greatest between-class variance, from the definition: share and mean of either class, summed
/// anew for each candidate.
int bruteForceOtsu(const cv::Mat& tile) {
  std::array<double, 256> share{};
  for (int y = 0; y < tile.rows; ++y) {
    for (int x = 0; x < tile.cols; ++x) share[tile.at<uchar>(y, x)] += 1.0 / static_cast<double>(tile.total());
  }
  double best = 0.0;
  int threshold = 0;
  for (int t = 0; t < 256; ++t) {
    double below = 0, above = 0, sumBelow = 0, sumAbove = 0;
    for (int v = 0; v < 256; ++v) {
      (v <= t ? below : above) += share[static_cast<std::size_t>(v)];
      (v <= t ? sumBelow : sumAbove) += v * share[static_cast<std::size_t>(v)];
    }
    if (below < 1e-6 || above < 1e-6) continue;
    const double difference = sumBelow / below - sumAbove / above;
    const double variance = below * above * difference * difference;
    if (variance > best * (1 + 1e-12)) {
      best = variance;
      threshold = t;
    }
  }
  return threshold;
}

cv::Mat noise(int cols, int rows, int seed) {
  cv::Mat image(rows, cols, CV_8UC1);
  cv::RNG random(static_cast<std::uint64_t>(seed));
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < cols; ++x) {
      const double level = (x + 2 * y) % 37 < 15 ? 60.0 + x / 8.0 : 170.0 - y / 8.0;
      image.at<uchar>(y, x) = cv::saturate_cast<uchar>(level + random.gaussian(12.0));
    }
  }
  return image;
}

cv::Mat binarized(const cv::Mat& image, int block, int interpolation = cv::INTER_CUBIC) {
  cv::Mat result;
  LocalOtsuBinarize(image, result, interpolation, block);
  return result;
}

/// White where the pixel is above the threshold of the tile that `tileOf` names.
cv::Mat expected(const cv::Mat& image, int tiles) {
  const int w = image.cols / tiles, h = image.rows / tiles;
  cv::Mat map(tiles, tiles, CV_8UC1), wide, result(image.size(), CV_8UC1);
  for (int i = 0; i < tiles; ++i) {
    for (int j = 0; j < tiles; ++j)
      map.at<uchar>(i, j) = static_cast<uchar>(bruteForceOtsu(image(cv::Rect(j * w, i * h, w, h))));
  }
  cv::resize(map, wide, image.size(), 0, 0, cv::INTER_CUBIC);
  for (int y = 0; y < image.rows; ++y) {
    for (int x = 0; x < image.cols; ++x)
      result.at<uchar>(y, x) = wide.at<uchar>(y, x) < image.at<uchar>(y, x) ? 255 : 0;
  }
  return result;
}

int differences(const cv::Mat& a, const cv::Mat& b) { return cv::countNonZero(a != b); }

}  // namespace

TEST(LocalOtsuBinarize, OneTileIsTheThresholdOfTheWholeImage) {
  for (int seed = 1; seed < 6; ++seed) {
    const cv::Mat image = noise(150, 90, seed);
    EXPECT_EQ(differences(binarized(image, 150), expected(image, 1)), 0) << seed;
  }
}

TEST(LocalOtsuBinarize, FourHundredColumnsInBlocksOfTwoHundredAreTwoByTwo) {
  const cv::Mat image = noise(400, 130, 7);
  EXPECT_EQ(differences(binarized(image, 200), expected(image, 2)), 0);
  EXPECT_GT(differences(expected(image, 1), expected(image, 2)), 0);
}

TEST(LocalOtsuBinarize, RemainderBeyondTheLastTileCountsForNone) {
  // 103 columns in three tiles of 34, 71 rows in three of 23: column 102 and rows 69, 70 are in no tile.
  cv::Mat image = noise(103, 71, 9);
  EXPECT_EQ(differences(binarized(image, 30), expected(image, 3)), 0);
  const cv::Mat before = binarized(image, 30);
  image.row(70).setTo(255);
  image.col(102).setTo(255);
  const cv::Rect covered(0, 0, 102, 70);
  EXPECT_EQ(differences(binarized(image, 30)(covered), before(covered)), 0);
}

TEST(LocalOtsuBinarize, UniformTileHasThresholdZero) {
  EXPECT_EQ(cv::countNonZero(binarized(drawing::sheet(60, 60, 1), 60)), 3600);
  EXPECT_EQ(cv::countNonZero(binarized(drawing::sheet(60, 60, 0), 60)), 0);
}

TEST(LocalOtsuBinarize, TwoValuesSplitAtTheLower) {
  // The first of the equally good thresholds is the lower value itself, and that is not above the threshold.
  cv::Mat image = drawing::sheet(60, 60, 40);
  image(cv::Rect(10, 10, 20, 30)).setTo(41);
  const cv::Mat result = binarized(image, 60);
  EXPECT_EQ(cv::countNonZero(result), 600);
  EXPECT_EQ(result.at<uchar>(15, 15), 255);
}

TEST(LocalOtsuBinarize, InterpolationIsTheCallers) {
  // Thresholds of 10 on the left and 200 on the right: with the nearest one the change is sharp in the middle.
  cv::Mat image = drawing::sheet(80, 80, 10);
  for (int y = 0; y < 80; y += 2) image.row(y).setTo(100);
  image(cv::Rect(40, 0, 40, 80)).setTo(200);
  for (int y = 0; y < 80; y += 2) image(cv::Rect(40, y, 40, 1)).setTo(250);
  image.at<uchar>(1, 38) = 60;
  EXPECT_EQ(binarized(image, 40, cv::INTER_NEAREST).at<uchar>(1, 38), 255);
  EXPECT_EQ(binarized(image, 40, cv::INTER_CUBIC).at<uchar>(1, 38), 0);
}

TEST(LocalOtsuBinarize, MayWorkInPlace) {
  cv::Mat image = noise(120, 90, 3);
  const cv::Mat apart = binarized(image, 60);
  LocalOtsuBinarize(image, image, cv::INTER_CUBIC, 60);
  EXPECT_EQ(differences(image, apart), 0);
}

TEST(LocalOtsuBinarize, BlockAboveTheWidthNamesBoth) {
  try {
    binarized(noise(150, 150, 1), 151);
    FAIL() << "nothing thrown";
  } catch (const cv::Exception& error) {
    EXPECT_NE(error.err.find("151"), std::string::npos);
    EXPECT_NE(error.err.find("150"), std::string::npos);
  }
  EXPECT_NO_THROW(binarized(noise(150, 150, 1), 150));
}

TEST(LocalOtsuBinarize, BlocksWithoutSizeAreRefused) {
  EXPECT_THROW(binarized(noise(150, 150, 1), 0), cv::Exception);
  EXPECT_THROW(binarized(noise(150, 150, 1), -5), cv::Exception);
}

TEST(LocalOtsuBinarize, MoreTilesThanRowsAreRefused) {
  EXPECT_THROW(binarized(noise(100, 9, 1), 10), cv::Exception);
  EXPECT_NO_THROW(binarized(noise(100, 10, 1), 10));
}
