#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Whether the list holds the markers wanted, 1 or 4. Of four, the farthest from their mean may be twice as far as the
/// nearest, no more. More than four are cut to the four likeliest: those with a `sigma` above 0.5 are dropped, then
/// those with the most unusual count of white pixels in `binary_image`. What was dropped by `sigma` stays dropped when
/// the check fails.
bool MarkerCountCheck(const cv::Mat& binary_image, std::vector<Ellipse>& list, std::size_t wanted);

}  // namespace kestrune
