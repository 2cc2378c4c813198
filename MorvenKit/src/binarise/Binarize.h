#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// The two-valued image that the detector traces, by the method that `bin_method` names; empty for a method that there
/// is not. `grey` is 8-bit, one channel, not empty.
cv::Mat Binarize(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
