#include "Tallowfen/src/markers/MarkerCountCheck.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace kestrune {
namespace {

constexpr std::size_t kRings = 4;
constexpr double kMostDistanceRatio = 2.0;
constexpr double kMostSigma = 0.5;

bool surroundTheirMean(const std::vector<Ellipse>& four) {
  cv::Point2d mean;
  for (const Ellipse& ellipse : four) mean += cv::Point2d(ellipse.x, ellipse.y);
  mean /= static_cast<double>(kRings);
  std::array<double, kRings> distances{};
  std::transform(four.begin(), four.end(), distances.begin(),
                 [&](const Ellipse& ellipse) { return cv::norm(cv::Point2d(ellipse.x, ellipse.y) - mean); });
  std::sort(distances.begin(), distances.end());
  return distances.front() != 0.0 && !(distances.back() / distances.front() > kMostDistanceRatio);
}

/// The member behind an erased one is passed over without a look: meant, the choice of the four depends on it.
void eraseUncertain(std::vector<Ellipse>& list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i].sigma > kMostSigma) list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

/// Cut to an integer, within its range also for what is not a number.
int cut(double value) {
  constexpr int kLimit = std::numeric_limits<int>::max();
  if (!(value > -kLimit)) return -kLimit;
  return value < kLimit ? static_cast<int>(value) : kLimit;
}

int whitePixelsAround(const cv::Mat& binary_image, const Ellipse& ellipse) {
  // One term after the other: their sum taken beforehand can round to another pixel.
  const int left = std::max(0, cut(ellipse.x - ellipse.semi_a - 2.0));
  const int top = std::max(0, cut(ellipse.y - ellipse.semi_a - 2.0));
  const int right = std::min(binary_image.cols, cut(ellipse.x + ellipse.semi_a + 2.0));
  const int bottom = std::min(binary_image.rows, cut(ellipse.y + ellipse.semi_a + 2.0));
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
  for (std::size_t i = 0; i < kRings; ++i) nearest.push_back(list[static_cast<std::size_t>(order[i])]);
  return nearest;
}

bool cutToFour(const cv::Mat& binary_image, std::vector<Ellipse>& list) {
  eraseUncertain(list);
  if (list.size() < kRings) return false;
  std::vector<Ellipse> candidates = list.size() == kRings ? list : nearestToMeanCount(binary_image, list);
  if (!surroundTheirMean(candidates)) return false;
  list = std::move(candidates);
  return true;
}

}  // namespace

bool MarkerCountCheck(const cv::Mat& binary_image, std::vector<Ellipse>& list, std::size_t wanted) {
  if (list.size() == kRings && !surroundTheirMean(list)) return false;
  if (wanted > list.size()) return false;
  if (wanted == list.size()) return true;
  if (wanted == 1) return false;
  return wanted != kRings || cutToFour(binary_image, list);
}

}  // namespace kestrune
