#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Gradient of an image, single precision, x along the columns and y along the rows.
struct EdgeGradient {
  cv::Mat_<float> x;
  cv::Mat_<float> y;
  cv::Mat_<float> magnitude;
};

/// 255 where the magnitude is at least what it is on both sides across the edge, interpolated between the two pixels
/// that the gradient points between. The image's first and last row and column are 0, and so is a pixel without
/// gradient.
cv::Mat_<uchar> nonMaximumSuppression(const EdgeGradient& gradient);

}  // namespace kestrune::morvenkit
