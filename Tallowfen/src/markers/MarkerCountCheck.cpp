#include "Tallowfen/src/markers/MarkerCountCheck.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

#include "Tallowfen/src/board/MarkerLayout.h"

namespace kestrune {
namespace {

// Corners of a rectangle are equally far from its middle; a slanted view draws them apart.
constexpr double kMostDistanceRatio = 2.0;
// Pixels. Half of what the detector lets pass.
constexpr double kMostSigma = 0.5;
// Pixels around a marker: its border counts with it.
constexpr double kMargin = 2.0;

bool surroundTheirMean(const std::vector<Ellipse>& four) {
  cv::Point2d mean;
  for (const Ellipse& ellipse : four) mean += cv::Point2d(ellipse.x, ellipse.y);
  mean /= static_cast<double>(kRingCount);
  std::array<double, kRingCount> distances{};
  std::transform(four.begin(), four.end(), distances.begin(),
                 [&](const Ellipse& ellipse) { return cv::norm(cv::Point2d(ellipse.x, ellipse.y) - mean); });
  std::sort(distances.begin(), distances.end());
  return distances.front() != 0.0 && !(distances.back() / distances.front() > kMostDistanceRatio);
}

/// Meant: the member behind an erased one is passed over without a test. The choice of the four depends on it.
void eraseUncertain(std::vector<Ellipse>& list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i].sigma > kMostSigma) list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

/// Cut to an integer; what is beyond its range, and NaN, to the ends of the range.
int cut(double value) {
  constexpr int kLimit = std::numeric_limits<int>::max();
  if (!(value > -kLimit)) return -kLimit;
  return value < kLimit ? static_cast<int>(value) : kLimit;
}

int whitePixelsAround(const cv::Mat& binary_image, const Ellipse& ellipse) {
  // One term after the other: their sum taken beforehand can round to another pixel.
  const int left = std::max(0, cut(ellipse.x - ellipse.semi_a - kMargin));
  const int top = std::max(0, cut(ellipse.y - ellipse.semi_a - kMargin));
  const int right = std::min(binary_image.cols, cut(ellipse.x + ellipse.semi_a + kMargin));
  const int bottom = std::min(binary_image.rows, cut(ellipse.y + ellipse.semi_a + kMargin));
  if (left >= right || top >= bottom) return 0;
  return cv::countNonZero(binary_image(cv::Range(top, bottom), cv::Range(left, right)));
}

std::vector<Ellipse> nearestToMeanCount(const cv::Mat& binary_image, const std::vector<Ellipse>& list) {
  std::vector<int> counts;
  counts.reserve(list.size());
  int sum = 0;
  for (const Ellipse& ellipse : list) {
    counts.push_back(whitePixelsAround(binary_image, ellipse));
    sum += counts.back();
  }
  const int mean = sum / static_cast<int>(counts.size());
  std::vector<float> differences;
  differences.reserve(counts.size());
  for (const int count : counts) differences.push_back(static_cast<float>(std::abs(count - mean)));
  std::vector<int> order;
  cv::sortIdx(differences, order, cv::SORT_EVERY_ROW | cv::SORT_ASCENDING);
  std::vector<Ellipse> nearest;
  for (std::size_t i = 0; i < kRingCount; ++i) nearest.push_back(list[static_cast<std::size_t>(order[i])]);
  return nearest;
}

bool cutToFour(const cv::Mat& binary_image, std::vector<Ellipse>& list) {
  eraseUncertain(list);
  if (list.size() < kRingCount) return false;
  std::vector<Ellipse> candidates = list.size() == kRingCount ? list : nearestToMeanCount(binary_image, list);
  if (!surroundTheirMean(candidates)) return false;
  list = std::move(candidates);
  return true;
}

}  // namespace

bool MarkerCountCheck(const cv::Mat& binary_image, std::vector<Ellipse>& list, std::size_t wanted) {
  if (list.size() == kRingCount && !surroundTheirMean(list)) return false;
  if (wanted > list.size()) return false;
  if (wanted == list.size()) return true;
  if (wanted == 1) return false;
  return wanted != kRingCount || cutToFour(binary_image, list);
}

}  // namespace kestrune
