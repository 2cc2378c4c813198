#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Thin edges (255 on 0) of a 32-bit float image (Canny 1986), with a Gaussian of sigma sqrt(2) pixels and hysteresis
/// between 1.5 and 2.5 times the mean magnitude.
cv::Mat GaussianEdgeCanny(const cv::Mat& image);

}  // namespace kestrune::morvenkit
