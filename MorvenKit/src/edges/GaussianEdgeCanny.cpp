#include "MorvenKit/src/edges/GaussianEdgeCanny.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <vector>

#include "MorvenKit/src/edges/EdgeHysteresis.h"
#include "MorvenKit/src/edges/GaussianKernels.h"
#include "MorvenKit/src/edges/NonMaximumSuppression.h"

namespace kestrune::morvenkit {

namespace {

// Pixels: enough against noise, and the outlines of small dots stay apart.
constexpr double kSigma = std::numbers::sqrt2;
// Multiples of the mean magnitude, so that dim and bright pictures give the same edges.
constexpr double kLowFactor = 1.5;
constexpr double kHighFactor = 2.5;

/// In single precision, as the image is. Flipped, as `cv::filter2D` correlates and a convolution is wanted.
cv::Mat flippedRow(const std::vector<double>& kernel) {
  cv::Mat column;
  cv::Mat(kernel).convertTo(column, CV_32F);
  cv::Mat row = column.reshape(1, 1);
  cv::flip(row, row, -1);
  return row;
}

cv::Mat convolve(const cv::Mat& image, const cv::Mat& flipped) {
  const cv::Point anchor(flipped.cols - flipped.cols / 2 - 1, flipped.rows - flipped.rows / 2 - 1);
  cv::Mat result;
  cv::filter2D(image, result, CV_32F, flipped, anchor, 0.0, cv::BORDER_REPLICATE);
  return result;
}

EdgeGradient gradient(const cv::Mat& image) {
  const GaussianKernels kernels = gaussianKernels(kSigma);
  const cv::Mat smooth = flippedRow(kernels.smooth), derivative = flippedRow(kernels.derivative);
  EdgeGradient result;
  result.x = convolve(convolve(image, smooth.t()), derivative);
  result.y = convolve(convolve(image, smooth), derivative.t());
  return result;
}

/// Magnitudes as fractions of the greatest.
cv::Mat_<float> relativeMagnitude(const EdgeGradient& gradient) {
  cv::Mat_<float> magnitude(gradient.x.size());
  std::transform(gradient.x.begin(), gradient.x.end(), gradient.y.begin(), magnitude.begin(),
                 [](float x, float y) { return std::sqrt(x * x + y * y); });
  const float greatest = *std::max_element(magnitude.begin(), magnitude.end());
  if (greatest > 0.0F) {
    for (float& value : magnitude) value /= greatest;
  }
  return magnitude;
}

}  // namespace

cv::Mat GaussianEdgeCanny(const cv::Mat& image) {
  EdgeGradient edges = gradient(image);
  edges.magnitude = relativeMagnitude(edges);
  const double mean = cv::mean(edges.magnitude)[0];
  const cv::Mat_<uchar> ridges = nonMaximumSuppression(edges);
  return edgeHysteresis(ridges, edges.magnitude, kLowFactor * mean, kHighFactor * mean);
}

}  // namespace kestrune::morvenkit
