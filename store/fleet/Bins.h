#pragma once

#include <cstddef>
#include <vector>

namespace polarline::fleet {

/// Bins of one width side by side.
struct Bins {
  double from = 0.0;
  double step = 1.0;
  std::size_t count = 0;

  /// What lies below is in the first, what lies above in the last.
  std::size_t binOf(double value) const;
};

/// Bins for the values from their 0.1 % to their 99.9 % quantile, and for the bounds that are not far from there. The
/// step is 1, 2, 2.5 or 5 times a power of ten, the beginning a multiple of it. None without values; infinite ones have
/// their place, too.
/// @param most How many at most.
Bins chooseBins(std::vector<double> values, const std::vector<double>& bounds, std::size_t most);

}  // namespace polarline::fleet
