#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

namespace kestrune {

using Contour = std::vector<cv::Point>;

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

/// Dots by which the polarity of a picture is judged: only large and round ones, as they must not be noise. The least
/// circularity is a single-precision figure, here and below.
inline constexpr DotLimits kCountedDots = {60, 500, static_cast<double>(0.6F), 1.25};

/// Dots that get an ellipse: smaller and less round ones too.
inline constexpr DotLimits kFittedDots = {30, 500, static_cast<double>(0.3F), 1.25};

/// 4 pi area / perimeter^2, 0 for a contour without a perimeter.
double circularityOf(const Contour& contour);

/// Whether the contour's length and circularity are within the limits.
bool isDot(const Contour& contour, const DotLimits& limits);

/// Whether a contour has no parent. `relatives` are its next, previous, first child and parent, -1 for none.
inline bool isTopLevel(const cv::Vec4i& relatives) { return relatives[3] == -1; }

}  // namespace kestrune
