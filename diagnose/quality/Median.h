#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace diagnose {

/// The value that a share of the values lies below; not a number without values.
inline double quantile(std::vector<double> values, double share) {
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  const auto at = values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), at, values.end());
  return *at;
}

inline double median(std::vector<double> values) { return quantile(std::move(values), 0.5); }

/// Median distance from the median, times 1.4826: the standard deviation of normal values.
inline double spreadAround(std::vector<double> values, double middle) {
  for (double& value : values) value = std::abs(value - middle);
  return 1.4826 * median(std::move(values));
}

}  // namespace diagnose
