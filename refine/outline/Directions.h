#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <opencv2/core.hpp>

namespace refine {

/// Unit vectors all around, the first one this part of a step from the x axis.
template <std::size_t kCount>
std::array<cv::Vec2d, kCount> directionsAround(double first = 0.0) {
  std::array<cv::Vec2d, kCount> directions;
  for (std::size_t k = 0; k < kCount; ++k) {
    const double angle = 2.0 * std::numbers::pi * (static_cast<double>(k) + first) / kCount;
    directions[k] = {std::cos(angle), std::sin(angle)};
  }
  return directions;
}

}  // namespace refine
