#include "store/fleet/Bins.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace polarline::fleet {
namespace {

/// The value so far up in the sorted list.
double quantile(std::vector<double>& values, double share) {
  const auto place = static_cast<std::ptrdiff_t>(std::llround(share * static_cast<double>(values.size() - 1)));
  std::ranges::nth_element(values, values.begin() + place);
  return values[static_cast<std::size_t>(place)];
}

/// k times 10 to the e, as near as a double comes to the decimal.
double decimal(double k, int exponent) {
  return exponent < 0 ? k / std::pow(10.0, -exponent) : k * std::pow(10.0, exponent);
}

}  // namespace

std::size_t Bins::binOf(double value) const {
  const double place = std::floor((value - from) / step);
  return static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(count) - 1.0));
}

Bins chooseBins(std::vector<double> values, const std::vector<double>& bounds, std::size_t most) {
  if (values.empty()) return {};
  constexpr double kFarthest = 1e100;  // No figure lies there; what is taken from or divided by such ones is a number.
  for (double& value : values) value = std::clamp(value, -kFarthest, kFarthest);
  constexpr double kTail = 0.001;
  double low = quantile(values, kTail);
  double high = quantile(values, 1.0 - kTail);
  const double reach = 2.0 * (high - low);
  double first = low, last = high;
  for (const double bound : bounds) {
    if (bound < low - reach || bound > high + reach) continue;
    first = std::min(first, bound);
    last = std::max(last, bound);
  }
  const double least = std::max((last - first) / static_cast<double>(most), std::max(std::abs(last), 1e-9) * 1e-9);
  for (int exponent = static_cast<int>(std::floor(std::log10(least)));; ++exponent) {
    for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
      const double step = decimal(factor, exponent);
      const double begin = std::floor(first / step);
      const double count = std::floor(last / step) - begin + 1.0;
      if (step >= least && count <= static_cast<double>(most))
        return {begin * step, step, static_cast<std::size_t>(count)};
    }
  }
}

}  // namespace polarline::fleet
