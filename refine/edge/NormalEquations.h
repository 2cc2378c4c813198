#pragma once

#include <Eigen/Core>
#include <array>
#include <cstddef>
#include <optional>

#include "refine/edge/EdgeModel.h"

namespace refine {

/// What the weighted pixels of a mark say of a model's unknowns, in least squares: N x = b.
class NormalEquations {
 public:
  static constexpr std::size_t kMost = EdgeModel::kMostUnknowns;

  /// Slopes by the unknowns, `stride` values from one unknown's to the next one's, and residuals and weights of the
  /// pixels. The columns go on to a whole number of fours, with zero weights there.
  NormalEquations(Eigen::Index pixels, std::size_t unknowns, const float* slopes, Eigen::Index stride,
                  const float* residuals, const float* weights);

  struct Solution {
    std::array<double, kMost> step{};
    cv::Matx22d covariance;  ///< Of the first two unknowns: the inverse's corner.
  };
  /// None where the pixels do not determine the unknowns. The equations are used up.
  std::optional<Solution> solve();

 private:
  static constexpr std::size_t kSides = 3;  ///< b, and two unit vectors for the inverse.

  std::size_t unknowns_;
  std::array<std::array<double, kMost>, kMost> lower_{};  ///< Of N, which is symmetric.
  std::array<std::array<double, kSides>, kMost> sides_{};
};

}  // namespace refine
