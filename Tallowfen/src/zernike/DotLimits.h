#pragma once

#include <cstddef>

namespace kestrune {

/// What a dot's contour may be like. Both ends of each range belong to it.
struct DotLimits {
  std::size_t fewest_points;
  std::size_t most_points;
  double least_circularity;     ///< Of 4 pi area / perimeter^2.
  double greatest_circularity;  ///< Beyond any plane outline, whose circularity is 1 at most.

  constexpr bool admitLength(std::size_t points) const { return points >= fewest_points && points <= most_points; }
  constexpr bool admitCircularity(double circularity) const {
    return circularity >= least_circularity && circularity <= greatest_circularity;
  }
};

/// Dots that tell the polarity of a picture. The least circularity is a single-precision figure, here and below.
inline constexpr DotLimits kCountedDots = {60, 500, static_cast<double>(0.6F), 1.25};

/// Dots worth an ellipse: smaller and less round ones too.
inline constexpr DotLimits kFittedDots = {30, 500, static_cast<double>(0.3F), 1.25};

}  // namespace kestrune
