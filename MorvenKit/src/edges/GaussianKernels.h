#pragma once

#include <vector>

namespace kestrune::morvenkit {

/// A smoothing kernel and its derivative, both with centre in the middle.
struct GaussianKernels {
  std::vector<double> smooth;  ///< Sum 1.
  std::vector<double>
      derivative;  ///< Central differences of `smooth`; the negative entries add up to -1, the positive to 1.
};

/// Kernels that reach 4 sigma to either side (Canny 1986). `sigma` in pixels, above 0.
GaussianKernels gaussianKernels(double sigma);

}  // namespace kestrune::morvenkit
