#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/Numbering.h"

namespace kestrune {

/// Finds dark dots in an 8-bit image (grey or BGR; bright dots when the image turns out to be the other way round) by
/// an adaptive threshold, sub-pixel edge points from Zernike moments and a direct ellipse fit. `ellipses` is replaced;
/// their classes are given by the caller. The pixels of `image` are not changed.
void SubPixelCircleDetector(const cv::Mat& image, std::vector<Ellipse>& ellipses);

}  // namespace kestrune
