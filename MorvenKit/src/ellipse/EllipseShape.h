#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "MorvenKit/Ellipse.h"

namespace kestrune::morvenkit {

/// 4 pi area / perimeter^2 of an ellipse, in single precision, with 4 (a - b) + 2 pi b for the perimeter; 1 when that
/// is below the precision of a float.
float ellipseCircularity(const Ellipse<double>& ellipse);

/// Whether the box of the ellipse lies in an image of that size, its outer lines included. The semi-axes stand for the
/// half sides of the box, whatever the orientation.
bool liesWithin(const Ellipse<double>& ellipse, const cv::Size& size);

/// Longer over shorter semi-axis, both cut to whole pixels first, integer division. None when a semi-axis is below one
/// pixel, not a number or beyond the integers.
std::optional<int> wholeAxisRatio(const Ellipse<double>& ellipse);

}  // namespace kestrune::morvenkit
