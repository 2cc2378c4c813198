#include "diagnose/causes/AlikeErrors.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr int kSide = 60;

/// Dots of one pair on a square grid, with rows of standard deviation 0.02, each the same in `block` x `block` dots.
struct Grid {
  explicit Grid(int block) {
    std::mt19937 engine(7);
    std::normal_distribution<double> normal(0.0, 0.02);
    std::vector<double> errors(kSide * kSide);
    for (double& error : errors) error = normal(engine);
    fit.sizes.setZero();
    fit.information = CauseMatrix::Identity();
    fit.rows.resize(kSide * kSide);
    fit.trust = Eigen::VectorXd::Ones(kSide * kSide);
    fit.slopes = Eigen::MatrixXd::Zero(kSide * kSide, static_cast<int>(kCauses));
    for (int row = 0; row < kSide; ++row) {
      for (int column = 0; column < kSide; ++column) {
        fit.rows[row * kSide + column] = errors[static_cast<std::size_t>((row / block) * kSide + column / block)];
        dots.push_back({0, {10.0 * column, 10.0 * row}, {}, {}, 0.02});
      }
    }
  }
  std::vector<RowDot> dots;
  RowFit fit;
};

TEST(AlikeErrors, OfSingleDotsInflateLittle) {
  const Grid grid(1);
  const AlikeErrors alike = alikeErrors(grid.dots, grid.fit);
  EXPECT_GE(alike.inflation, 1.0);
  EXPECT_LT(alike.inflation, 2.0);
  EXPECT_LT(alike.smooth_rms, 0.003);
}

/// Nine dots that err as one tell as much as one: the variance of their sum is nine times that of nine. Blocks cut
/// through some of the nine.
TEST(AlikeErrors, OfNineNeighboursInflateNineTimes) {
  const Grid grid(3);
  const double inflation = alikeErrors(grid.dots, grid.fit).inflation;
  EXPECT_GT(inflation, 4.0);
  EXPECT_LT(inflation, 14.0);
}

TEST(AlikeErrors, OfLargeFieldsAreSmooth) {
  const Grid grid(15);
  EXPECT_NEAR(alikeErrors(grid.dots, grid.fit).smooth_rms, 0.02, 0.008);
}

TEST(AlikeErrors, OfOutliersDoNotCount) {
  Grid grid(1);
  for (int k = 0; k < kSide; ++k) {
    grid.fit.rows[k] = 5.0;
    grid.fit.trust[k] = 0.0;
  }
  const AlikeErrors alike = alikeErrors(grid.dots, grid.fit);
  EXPECT_LT(alike.inflation, 2.0);
  EXPECT_LT(alike.smooth_rms, 0.003);
}

/// Six places of 20 dots that err as one: a single pair has no more to tell it by.
TEST(AlikeErrors, OfSixPlacesInflateByTheirDots) {
  Grid grid(1);
  grid.dots.resize(120);
  grid.fit.rows.resize(120);
  grid.fit.trust = Eigen::VectorXd::Ones(120);
  grid.fit.slopes = Eigen::MatrixXd::Zero(120, static_cast<int>(kCauses));
  for (int k = 0; k < 120; ++k) {
    const int place = k / 20;
    grid.dots[static_cast<std::size_t>(k)].left = {100.0 * (place % 3), 100.0 * (place / 3)};
    grid.fit.rows[k] = place % 2 == 0 ? 0.03 : -0.01;
  }
  EXPECT_NEAR(alikeErrors(grid.dots, grid.fit).inflation, 20.0, 1e-9);
}

TEST(AlikeErrors, OfTooFewBlocksSayNothing) {
  Grid grid(1);
  for (RowDot& dot : grid.dots) dot.left = {1.0, 1.0};
  EXPECT_EQ(alikeErrors(grid.dots, grid.fit).inflation, 1.0);
}

}  // namespace
