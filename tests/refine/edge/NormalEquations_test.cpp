#include "refine/edge/NormalEquations.h"

#include <gtest/gtest.h>

#include <Eigen/Dense>
#include <random>

namespace {

using refine::NormalEquations;

/// A straight line through (0, 1), (1, 3), (2, 4), (3, 4) with the weights 1, 2, 2, 1: by hand the sums are 6 of the
/// weights, 9 and 19 of x and its squares, 19 and 34 of y and x y, so that the determinant is 33.
TEST(NormalEquationsSolution, IsTheWeightedLineByHand) {
  constexpr Eigen::Index kStride = 8;
  std::array<float, 2 * kStride> slopes{1, 1, 1, 1, 9, 9, 9, 9, 0, 1, 2, 3, 9, 9, 9, 9};
  const std::array<float, 4> y{1, 3, 4, 4}, weights{1, 2, 2, 1};
  const auto solution = NormalEquations(4, 2, slopes.data(), kStride, y.data(), weights.data()).solve();
  ASSERT_TRUE(solution);
  EXPECT_NEAR(solution->step[0], (19.0 * 19.0 - 9.0 * 34.0) / 33.0, 1e-12);
  EXPECT_NEAR(solution->step[1], (6.0 * 34.0 - 9.0 * 19.0) / 33.0, 1e-12);
  EXPECT_NEAR(solution->covariance(0, 0), 19.0 / 33.0, 1e-12);
  EXPECT_NEAR(solution->covariance(0, 1), -9.0 / 33.0, 1e-12);
  EXPECT_NEAR(solution->covariance(1, 0), -9.0 / 33.0, 1e-12);
  EXPECT_NEAR(solution->covariance(1, 1), 6.0 / 33.0, 1e-12);
}

class NormalEquationsOf : public ::testing::TestWithParam<std::size_t> {};

TEST_P(NormalEquationsOf, AreSolvedAsByAnOrthogonalDecomposition) {
  constexpr Eigen::Index kPixels = 64;
  std::mt19937 random(7);
  std::uniform_real_distribution<float> any(-1.0F, 1.0F), positive(0.1F, 2.0F);
  const auto unknowns = static_cast<Eigen::Index>(GetParam());
  Eigen::MatrixXf slopes(kPixels, unknowns);
  for (float& value : slopes.reshaped()) value = any(random);
  Eigen::VectorXf residuals(kPixels), weights(kPixels);
  for (float& value : residuals) value = any(random);
  for (float& value : weights) value = positive(random);
  const auto solution =
      NormalEquations(kPixels, GetParam(), slopes.data(), kPixels, residuals.data(), weights.data()).solve();
  ASSERT_TRUE(solution);
  const Eigen::VectorXd roots = weights.cast<double>().cwiseSqrt();
  const Eigen::MatrixXd weighted = roots.asDiagonal() * slopes.cast<double>();
  const Eigen::VectorXd expected = weighted.colPivHouseholderQr().solve(roots.asDiagonal() * residuals.cast<double>());
  const Eigen::MatrixXd inverse = (weighted.transpose() * weighted).inverse();
  for (Eigen::Index k = 0; k < unknowns; ++k)
    EXPECT_NEAR(solution->step[static_cast<std::size_t>(k)], expected(k), 2e-5) << k;
  EXPECT_NEAR(solution->covariance(0, 0), inverse(0, 0), 1e-6);
  EXPECT_NEAR(solution->covariance(0, 1), inverse(0, 1), 1e-6);
  EXPECT_NEAR(solution->covariance(1, 1), inverse(1, 1), 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Unknowns, NormalEquationsOf, ::testing::Values(2, 3, 8, 9, 10));

/// The sums are squares of whole numbers, so that no rounding hides it.
TEST(NormalEquationsSolution, IsNoneWhereTwoUnknownsDoTheSame) {
  constexpr Eigen::Index kStride = 4;
  const std::array<float, 2 * kStride> slopes{1, 1, -1, -1, 1, 1, -1, -1};
  const std::array<float, kStride> residuals{1, 1, 2, 2}, weights{1, 1, 1, 1};
  EXPECT_FALSE(NormalEquations(4, 2, slopes.data(), kStride, residuals.data(), weights.data()).solve());
}

}  // namespace
