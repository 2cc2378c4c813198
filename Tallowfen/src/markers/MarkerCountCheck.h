#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Whether the list holds the markers wanted, 1 or 4. Four must lie around their mean with distances no more than twice
/// apart. More than four are cut to the four likeliest, by their edge residual and then by their black and white
/// balance in `binary_image`; what the residual dropped stays dropped when the check fails.
bool MarkerCountCheck(const cv::Mat& binary_image, std::vector<Ellipse>& list, std::size_t wanted);

}  // namespace kestrune
