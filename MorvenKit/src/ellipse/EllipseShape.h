#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "MorvenKit/Ellipse.h"

namespace kestrune::morvenkit {

/// 4 pi area / perimeter^2 of an ellipse, in single precision. The perimeter is taken as 4 (a - b) + 2 pi b, which is
/// right for a circle and for a flat ellipse; 1 when it is below the precision of a float.
float ellipseCircularity(const Ellipse<double>& ellipse);

/// Whether the ellipse's box lies in an image of that size, its outer lines included. The box reaches `semi_a` to the
/// left and right and `semi_b` up and down, whatever the orientation: meant.
bool liesWithin(const Ellipse<double>& ellipse, const cv::Size& size);

/// Longer over shorter semi-axis, both cut to whole pixels first, integer division. None when a semi-axis is below one
/// pixel, NaN or beyond the range of an integer.
std::optional<int> wholeAxisRatio(const Ellipse<double>& ellipse);

}  // namespace kestrune::morvenkit
