#pragma once

#include <vector>

namespace kestrune::morvenkit {

/// A Gaussian and its derivative, both centred.
struct GaussianKernels {
  std::vector<double> smooth;      ///< Sum 1.
  std::vector<double> derivative;  ///< Differences of `smooth`, scaled: the negative ones sum to -1, the positive to 1.
};

/// Kernels that reach 4 sigma to either side (Canny 1986). `sigma` in pixels, above 0.
GaussianKernels gaussianKernels(double sigma);

}  // namespace kestrune::morvenkit
