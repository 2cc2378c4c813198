#pragma once

#include <algorithm>

namespace refine {

/// Variance of a pixel as a straight line of its grey: what reading and light add (Healey and Kondepudy 1994).
struct NoiseLevel {
  double base = 1.0;    ///< At grey 0, squared greys.
  double slope = 0.0;   ///< By grey.
  double least = 1e-4;  ///< The rounding to whole numbers alone.

  double variance(double grey) const { return std::max(base + slope * grey, least); }
};

}  // namespace refine
