#pragma once

#include <cstddef>
#include <limits>
#include <vector>

namespace polarline {

/// How the values of the dots are spread. Without a finite value none of it is a number.
struct Spread {
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

  std::size_t count = 0;  ///< Finite ones.
  double mean = kNone;
  double mean_abs = kNone;
  double sd = kNone;  ///< Of the sample (n - 1).
  double min = kNone, median = kNone, max = kNone;
  double p95_abs = kNone;  ///< 95 of 100 are no farther from 0.
};

Spread spreadOf(const std::vector<double>& values);

/// Places of the values that are farthest from 0, the farthest first; finite ones only.
std::vector<std::size_t> farthestOf(const std::vector<double>& values, std::size_t most);

}  // namespace polarline
