#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 2: finds edges after a Gaussian smoothing and fills the innermost outline of each marker among them
/// with white.
cv::Mat OutlineFill(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
