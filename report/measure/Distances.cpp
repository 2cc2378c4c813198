#include "report/measure/Distances.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <opencv2/core.hpp>

namespace polarline {
namespace {

/// A million distances say all that more would.
constexpr std::size_t kMostDots = 1400;
constexpr double kAboutBins = 12.0;

struct PlacedDot {
  cv::Point3d measured, place;
};

std::vector<PlacedDot> placedDots(const DotLists& dots, const Board& board) {
  std::vector<PlacedDot> placed;
  if (dots.x.empty() || dots.y.empty() || dots.z.empty()) return placed;
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    const auto place = board.placeOf(dots.id[k]);
    const cv::Point3d measured(dots.x[k], dots.y[k], dots.z[k]);
    if (place && std::isfinite(cv::norm(measured)) && std::isfinite(cv::norm(*place)))
      placed.push_back({measured, *place});
  }
  const std::size_t every = (placed.size() + kMostDots - 1) / kMostDots;
  std::vector<PlacedDot> chosen;
  for (std::size_t k = 0; k < placed.size(); k += every) chosen.push_back(placed[k]);
  return chosen;
}

/// 1, 2 or 5 times a power of ten.
double roundWidth(double width) {
  const double power = std::pow(10.0, std::floor(std::log10(width)));
  for (const double times : std::array{1.0, 2.0, 5.0}) {
    if (times * power >= width) return times * power;
  }
  return 10.0 * power;
}

/// The true distances reach no farther than the diagonal of the box around the places.
double reachOf(const std::vector<PlacedDot>& dots) {
  cv::Point3d low = dots.front().place;
  cv::Point3d high = low;
  for (const PlacedDot& dot : dots) {
    low = {std::min(low.x, dot.place.x), std::min(low.y, dot.place.y), std::min(low.z, dot.place.z)};
    high = {std::max(high.x, dot.place.x), std::max(high.y, dot.place.y), std::max(high.z, dot.place.z)};
  }
  return cv::norm(high - low);
}

/// Sums of one bin while it is filled.
struct Sums {
  std::size_t count = 0;
  double sum = 0.0, squares = 0.0;
  double min = std::numeric_limits<double>::infinity();
  double max = -std::numeric_limits<double>::infinity();

  void add(double error) {
    ++count;
    sum += error;
    squares += error * error;
    min = std::min(min, error);
    max = std::max(max, error);
  }
  DistanceBin bin(double from, double to) const {
    const auto n = static_cast<double>(count);
    const double mean = sum / n;
    const double variance = count < 2 ? 0.0 : std::max(0.0, squares - n * mean * mean) / (n - 1.0);
    return {from, to, count, mean, std::sqrt(variance), min, max};
  }
};

}  // namespace

std::vector<DistanceBin> distanceBins(const DotLists& dots, const Board& board) {
  const std::vector<PlacedDot> placed = placedDots(dots, board);
  if (placed.size() < 2) return {};
  const double reach = reachOf(placed);
  if (!std::isfinite(reach) || reach <= 0.0) return {};
  const double width = roundWidth(reach / kAboutBins);
  if (!std::isnormal(width)) return {};
  std::vector<Sums> sums(static_cast<std::size_t>(reach / width) + 1);
  for (std::size_t k = 0; k < placed.size(); ++k) {
    for (std::size_t j = 0; j < k; ++j) {
      const double distance = cv::norm(placed[k].place - placed[j].place);
      const double error = cv::norm(placed[k].measured - placed[j].measured) - distance;
      const auto bin = std::min(static_cast<std::size_t>(distance / width), sums.size() - 1);
      if (std::isfinite(error)) sums[bin].add(error);
    }
  }
  std::vector<DistanceBin> bins;
  for (std::size_t k = 0; k < sums.size(); ++k) {
    if (sums[k].count > 0)
      bins.push_back(sums[k].bin(static_cast<double>(k) * width, static_cast<double>(k + 1) * width));
  }
  return bins;
}

}  // namespace polarline
