#include "MorvenKit/src/edges/SobelPercentileEdges.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace kestrune::morvenkit {

namespace {

// Outermost rows and columns without a magnitude; in the percentile they count as 0. Meant.
constexpr int kBorder = 5;
// The edges are the strongest fortieth of the pixels.
constexpr double kShareBelow = 0.975;
constexpr std::size_t kLargestMagnitude = 361;  // Of two differences of 255 each.

using Magnitude = std::uint16_t;

Magnitude magnitudeAt(const cv::Mat& image, int y, int x) {
  const int gx = image.at<uchar>(y, x + 1) - image.at<uchar>(y, x - 1);
  const int gy = image.at<uchar>(y + 1, x) - image.at<uchar>(y - 1, x);
  return static_cast<Magnitude>(std::lround(std::sqrt(static_cast<double>(gx * gx + gy * gy))));
}

cv::Mat_<Magnitude> magnitudes(const cv::Mat& image) {
  cv::Mat_<Magnitude> result(image.size(), Magnitude{0});
  for (int y = kBorder; y < image.rows - kBorder; ++y) {
    for (int x = kBorder; x < image.cols - kBorder; ++x) result(y, x) = magnitudeAt(image, y, x);
  }
  return result;
}

int percentile(const cv::Mat_<Magnitude>& magnitude) {
  std::array<int, kLargestMagnitude + 1> histogram{};
  for (const Magnitude value : magnitude) ++histogram.at(value);
  const int count = static_cast<int>(static_cast<double>(magnitude.total()) * kShareBelow);
  int threshold = 0;
  for (int sum = histogram[0]; sum <= count; sum += histogram.at(static_cast<std::size_t>(threshold))) ++threshold;
  return threshold;
}

}  // namespace

void SobelPercentileEdges(cv::Mat& image) {
  const cv::Mat_<Magnitude> magnitude = magnitudes(image);
  const int threshold = percentile(magnitude);
  for (int y = 0; y < image.rows; ++y) {
    for (int x = 0; x < image.cols; ++x) {
      image.at<uchar>(y, x) = magnitude(y, x) > threshold ? kEdgeValue : std::uint8_t{0};
    }
  }
}

}  // namespace kestrune::morvenkit
