#include "MorvenKit/src/edges/GaussianKernels.h"

#include <cmath>
#include <cstddef>
#include <numeric>
#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

namespace {

// In sigmas to either side; beyond it the Gaussian holds less than a ten-thousandth of its sum.
constexpr float kReachInSigmas = 4.0F;

std::vector<double> smoothing(double sigma) {
  const int half = static_cast<int>(std::ceil(kReachInSigmas * static_cast<float>(sigma)));
  std::vector<double> kernel;
  for (int i = -half; i <= half; ++i) {
    kernel.push_back(std::exp(-(i * i) / (2.0 * sigma * sigma)) / (std::sqrt(2.0 * CV_PI) * sigma));
  }
  const double sum = std::accumulate(kernel.begin(), kernel.end(), 0.0);
  for (double& value : kernel) value /= sum;
  return kernel;
}

std::vector<double> centralDifferences(const std::vector<double>& g) {
  const std::size_t last = g.size() - 1;
  std::vector<double> d(g.size());
  d.front() = g[1] - g[0];
  d.back() = g[last] - g[last - 1];
  for (std::size_t i = 1; i < last; ++i) d[i] = (g[i + 1] - g[i - 1]) / 2.0;
  return d;
}

/// Scales the negative entries to the sum -1 and the positive ones to the sum 1.
void normaliseSides(std::vector<double>& kernel) {
  double negative = 0.0, positive = 0.0;
  for (const double value : kernel) (value < 0.0 ? negative : positive) += std::abs(value);
  for (double& value : kernel) {
    if (value != 0.0) value /= value < 0.0 ? negative : positive;
  }
}

}  // namespace

GaussianKernels gaussianKernels(double sigma) {
  GaussianKernels kernels;
  kernels.smooth = smoothing(sigma);
  kernels.derivative = centralDifferences(kernels.smooth);
  normaliseSides(kernels.derivative);
  return kernels;
}

}  // namespace kestrune::morvenkit
