#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

/// Values by their rank; no entry may be not a number. Functions that take a reference put the values in another order.
namespace rank {

/// The value that as many lie below; `place` is less than their number.
template <typename Number>
Number at(std::vector<Number>& values, std::size_t place) {
  const auto found = values.begin() + static_cast<std::ptrdiff_t>(place);
  std::nth_element(values.begin(), found, values.end());
  return *found;
}

/// The upper one of two middle values; of at least one.
template <typename Number>
Number upperMedian(std::vector<Number>& values) {
  return at(values, values.size() / 2);
}

/// The value that a share of the values lies below, the lower one where that falls between two; not a number without
/// values.
inline double quantile(std::vector<double> values, double share) {
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  return at(values, static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

inline double median(std::vector<double> values) { return quantile(std::move(values), 0.5); }

/// Median distance from the median, times 1.4826: the standard deviation of normal values.
inline double spreadAround(std::vector<double> values, double middle) {
  for (double& value : values) value = std::abs(value - middle);
  return 1.4826 * median(std::move(values));
}

}  // namespace rank
