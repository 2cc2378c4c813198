#include "diagnose/uncertainty/PictureNoise.h"

#include <algorithm>
#include <array>
#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace {

constexpr int kGreys = 256;
constexpr int kGreysABin = 16;
constexpr double kRounding = 1.0 / 12.0;  ///< Variance of rounding to whole greys.

/// What the second differences of the places of like grey add up to.
struct Bin {
  double greys = 0.0;
  double squares = 0.0;
  double count = 0.0;
};
using Bins = std::array<Bin, kGreys / kGreysABin>;

/// Second differences along both axes; white noise keeps its variance.
cv::Mat secondDifferences(const cv::Mat& picture) {
  const cv::Matx33f kernel(1, -2, 1, -2, 4, -2, 1, -2, 1);
  cv::Mat differences;
  cv::filter2D(picture, differences, CV_32F, kernel * (1.0F / 6.0F));
  return differences;
}

/// The range of the greys about each place, behind a small blur so that noise weighs less.
cv::Mat rangesOf(const cv::Mat& blurred) {
  const cv::Mat around = cv::Mat::ones(5, 5, CV_8U);
  cv::Mat lowest;
  cv::Mat highest;
  cv::erode(blurred, lowest, around);
  cv::dilate(blurred, highest, around);
  return highest - lowest;
}

/// The range up to which a place counts as flat: half as much again as a fifth of the places have.
int flatRange(const cv::Mat& ranges) {
  std::array<std::size_t, kGreys> count{};
  for (int y = 0; y < ranges.rows; ++y) {
    for (int x = 0; x < ranges.cols; ++x) ++count.at(ranges.at<std::uint8_t>(y, x));
  }
  const std::size_t wanted = ranges.total() / 5;
  std::size_t below = 0;
  int range = 0;
  while (range < kGreys - 1 && (below += count.at(static_cast<std::size_t>(range))) < wanted) ++range;
  return range + (range + 1) / 2;
}

/// Of a large picture bands of rows, spread over it: they have more than enough of flat places.
cv::Mat bandsOf(const cv::Mat& picture) {
  constexpr std::size_t kEnough = 1U << 21U;  // Pixels.
  constexpr int kBand = 32;
  const int every = static_cast<int>(picture.total() / kEnough);
  if (every < 2) return picture;
  std::vector<cv::Mat> bands;
  for (int row = 0; row + kBand <= picture.rows; row += every * kBand)
    bands.push_back(picture.rowRange(row, row + kBand));
  cv::Mat together;
  cv::vconcat(bands, together);
  return together;
}

Bins binsOf(const cv::Mat& picture) {
  const cv::Mat differences = secondDifferences(picture);
  cv::Mat blurred;
  cv::blur(picture, blurred, cv::Size(3, 3));
  const cv::Mat ranges = rangesOf(blurred);
  const int flat = flatRange(ranges);
  Bins bins{};
  for (int y = 1; y + 1 < picture.rows; ++y) {
    for (int x = 1; x + 1 < picture.cols; ++x) {
      const int grey = blurred.at<std::uint8_t>(y, x);
      if (ranges.at<std::uint8_t>(y, x) > flat || grey == 0 || grey == kGreys - 1) continue;  // Clipped: no noise.
      Bin& bin = bins.at(static_cast<std::size_t>(grey / kGreysABin));
      const double difference = differences.at<float>(y, x);
      bin.greys += grey;
      bin.squares += difference * difference;
      bin.count += 1.0;
    }
  }
  return bins;
}

/// Equally likely values of a normal variate: quicker than a formula for each of millions of pixels.
class NormalTable {
 public:
  static constexpr std::size_t kBits = 12;

  NormalTable() {
    const boost::math::normal normal;
    for (std::size_t k = 0; k < values_.size(); ++k) {
      values_.at(k) = static_cast<float>(
          boost::math::quantile(normal, (static_cast<double>(k) + 0.5) / static_cast<double>(values_.size())));
    }
  }
  float operator[](std::size_t k) const { return values_[k]; }

 private:
  std::array<float, std::size_t{1} << kBits> values_{};
};

}  // namespace

PictureNoise estimateNoise(const cv::Mat& picture) {
  constexpr double kLeastPlaces = 100.0;
  // A line through the bins, each with the weight of its places.
  double places = 0.0;
  double greys = 0.0;
  double grey_squares = 0.0;
  double variances = 0.0;
  double products = 0.0;
  for (const Bin& bin : binsOf(bandsOf(picture))) {
    if (bin.count < kLeastPlaces) continue;
    const double grey = bin.greys / bin.count;
    places += bin.count;
    greys += bin.greys;
    grey_squares += bin.greys * grey;
    variances += bin.squares;
    products += bin.squares * grey;
  }
  if (places == 0.0) return {};
  const double spread = places * grey_squares - greys * greys;
  const bool has_slope = spread > places * places;  // The greys differ by more than one.
  const double slope = has_slope ? std::max(0.0, (places * products - greys * variances) / spread) : 0.0;
  const double floor = (variances - slope * greys) / places;
  if (floor >= 0.0) return {floor, slope};
  return {0.0, products / grey_squares};
}

cv::Mat withMoreNoise(const cv::Mat& picture, const PictureNoise& noise, SeededRandom& random) {
  static const NormalTable kNormal;
  constexpr std::size_t kDraws = 5;  // Of one number of 64 bits.
  constexpr std::uint64_t kMask = (std::uint64_t{1} << NormalTable::kBits) - 1;
  std::array<float, kGreys> deviation{};
  for (int grey = 0; grey < kGreys; ++grey) {
    const double variance = noise.varianceAt(grey);
    if (variance <= kRounding) continue;  // The next picture is rounded to the same greys.
    deviation.at(static_cast<std::size_t>(grey)) = static_cast<float>(std::sqrt(2.0 * variance - kRounding));
  }
  const cv::Mat whole = picture.isContinuous() ? picture : picture.clone();
  cv::Mat noisy(picture.size(), CV_8UC1);
  const auto* from = whole.ptr<std::uint8_t>();
  auto* to = noisy.ptr<std::uint8_t>();
  const auto add = [&](std::size_t draws) {
    std::uint64_t bits = random.bits();
    for (std::size_t k = 0; k < draws; ++k, ++from, ++to, bits >>= NormalTable::kBits)
      *to = cv::saturate_cast<std::uint8_t>(static_cast<float>(*from) + deviation[*from] * kNormal[bits & kMask]);
  };
  const std::size_t pixels = noisy.total();
  for (std::size_t k = 0; k < pixels / kDraws; ++k) add(kDraws);
  if (pixels % kDraws > 0) add(pixels % kDraws);
  return noisy;
}
