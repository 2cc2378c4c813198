#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Gradient of an image, single precision, x along the columns and y along the rows.
struct EdgeGradient {
  cv::Mat_<float> x;
  cv::Mat_<float> y;
  cv::Mat_<float> magnitude;
};

/// 255 where the magnitude is at least that on both sides across the edge, each interpolated between the two neighbours
/// that the gradient points between. 0 elsewhere, in the image's outermost rows and columns, and without a gradient.
cv::Mat_<uchar> nonMaximumSuppression(const EdgeGradient& gradient);

}  // namespace kestrune::morvenkit
