#include "polar/geometry/OutlierSearch.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

/// The whole part; what an integer cannot hold becomes the nearest that it can, NaN becomes 0.
std::int32_t wholePart(double value) {
  constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(value)) return 0;
  if (value <= kLowest) return std::numeric_limits<std::int32_t>::min();
  if (value >= kHighest) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(value);
}

/// The running sum drops its fraction with every value, the division drops its own.
std::int32_t wholeMean(const std::vector<double>& values) {
  std::int32_t sum = 0;
  for (const double value : values) sum = wholePart(sum + value);
  return static_cast<std::int32_t>(sum / static_cast<std::int64_t>(values.size()));
}

double deviationFrom(std::int32_t mean, const std::vector<double>& values) {
  double square_sum = 0.0;
  for (const double value : values) square_sum += std::pow(value - mean, 2.0);
  return std::sqrt(square_sum / static_cast<double>(values.size()));
}

std::size_t indexOfLargest(const std::vector<double>& values) {
  std::size_t largest = 0;
  for (std::size_t k = 1; k < values.size(); ++k) {
    const std::int64_t candidate = wholePart(values[k]);
    const std::int64_t held = wholePart(values[largest]);
    if (std::abs(candidate) > std::abs(held)) largest = k;
  }
  return largest;
}

}  // namespace

std::optional<std::size_t> findOutlier(const std::vector<double>& values) {
  if (values.empty()) return std::nullopt;
  const std::int32_t mean = wholeMean(values);
  const double deviation = deviationFrom(mean, values);
  const std::size_t picked = indexOfLargest(values);
  constexpr double kDeviations = 10.0;
  if (std::abs(values[picked]) > kDeviations * deviation + mean) return picked;
  return std::nullopt;
}
