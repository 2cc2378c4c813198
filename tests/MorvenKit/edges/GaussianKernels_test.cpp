#include "MorvenKit/src/edges/GaussianKernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <numeric>

using kestrune::morvenkit::GaussianKernels;
using kestrune::morvenkit::gaussianKernels;

namespace {

const GaussianKernels kKernels = gaussianKernels(std::numbers::sqrt2);

}  // namespace

TEST(GaussianKernels, ReachFourSigma) {
  EXPECT_EQ(kKernels.smooth.size(), 13U);
  EXPECT_EQ(kKernels.derivative.size(), 13U);
  EXPECT_EQ(gaussianKernels(1.0).smooth.size(), 9U);
}

TEST(GaussianKernels, SmoothingAddsUpToOne) {
  EXPECT_NEAR(std::accumulate(kKernels.smooth.begin(), kKernels.smooth.end(), 0.0), 1.0, 1e-15);
}

TEST(GaussianKernels, SmoothingFallsLikeAGaussian) {
  // exp(-i^2 / 4) beside the middle.
  for (int i = 0; i <= 6; ++i) {
    const double expected = std::exp(-i * i / 4.0);
    EXPECT_NEAR(kKernels.smooth[static_cast<std::size_t>(6 + i)] / kKernels.smooth[6], expected, 1e-14);
    EXPECT_NEAR(kKernels.smooth[static_cast<std::size_t>(6 - i)] / kKernels.smooth[6], expected, 1e-14);
  }
}

TEST(GaussianKernels, SidesOfTheDerivativeAddUpToOneEach) {
  double negative = 0, positive = 0;
  for (const double d : kKernels.derivative) (d < 0 ? negative : positive) += d;
  EXPECT_NEAR(positive, 1.0, 1e-15);
  EXPECT_NEAR(negative, -1.0, 1e-15);
}

TEST(GaussianKernels, DerivativeIsTheCentralDifference) {
  const auto& g = kKernels.smooth;
  const auto& d = kKernels.derivative;
  EXPECT_EQ(d[6], 0.0);
  // Inner entries stand to one another as the differences do; the ends are plain differences, twice as large as halved
  // ones.
  const double unit = d[5] / (g[6] - g[4]);
  EXPECT_NEAR(d[2], unit * (g[3] - g[1]), 1e-15);
  EXPECT_NEAR(d[0], 2 * unit * (g[1] - g[0]), 1e-15);
  EXPECT_NEAR(d[12], 2 * unit * (g[12] - g[11]), 1e-15);
  EXPECT_GT(d[5], 0.0);
  EXPECT_LT(d[7], 0.0);
}
