#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// The two-valued image that the detector traces, by the method of `bin_method`: 0 `LocalThreshold`, 1
/// `OutlineThreshold`, 2 `OutlineFill`; an empty image for any other number. `grey` is 8-bit, one channel, not empty.
cv::Mat Binarize(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
