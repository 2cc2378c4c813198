#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 2: the innermost outlines among the Gaussian edges, filled with white.
cv::Mat GaussianEdge(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
