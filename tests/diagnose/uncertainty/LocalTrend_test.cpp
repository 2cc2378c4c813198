#include "diagnose/uncertainty/LocalTrend.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "support/NormalDraw.h"

namespace {

constexpr int kColumns = 20;
constexpr int kRows = 15;

BoardGrid wholeBoard() {
  std::vector<std::int32_t> ids(static_cast<std::size_t>(kColumns * kRows));
  std::iota(ids.begin(), ids.end(), 0);
  return {ids, kColumns};
}

/// A bent surface, with noise of that deviation.
Eigen::MatrixXd surface(double deviation, unsigned seed = 1) {
  NormalDraw normal(seed);
  Eigen::MatrixXd field(2, kColumns * kRows);
  for (Eigen::Index dot = 0; dot < field.cols(); ++dot) {
    const auto x = static_cast<double>(dot % kColumns);
    const auto y = static_cast<double>(dot / kColumns);
    field.col(dot) << 3.0 + 2.0 * x - y + 0.1 * x * y, 0.2 * x * x - 0.3 * y * y;
    field.col(dot) += deviation * Eigen::Vector2d(normal(), normal());
  }
  return field;
}

TEST(LocalTrend, ParabolaLeavesNoScatter) { EXPECT_LT(LocalTrend(wholeBoard()).scatter(surface(0.0)).norm(), 1e-9); }

TEST(LocalTrend, NoiseHasItsVarianceWhateverTheTrend) {
  const LocalTrend trend(wholeBoard());
  const double variance = trend.variance(trend.scatter(surface(0.5)));
  EXPECT_NEAR(variance, 2.0 * 0.25, 0.06);  // Of both components; 600 values tell it to 6 %.
}

TEST(LocalTrend, DotsWithoutNeighboursHaveNone) {
  const LocalTrend trend(BoardGrid({0, 1, 2, 50, 51}, kColumns));
  const Eigen::MatrixXd scatter = trend.scatter(Eigen::MatrixXd::Random(2, 5));
  EXPECT_EQ(scatter.norm(), 0.0);
  EXPECT_EQ(trend.variance(scatter), 0.0);
}

TEST(LocalTrend, OneRowOfDotsHasNoParabola) {
  std::vector<std::int32_t> ids(kColumns);
  std::iota(ids.begin(), ids.end(), 0);
  EXPECT_EQ(LocalTrend(BoardGrid(ids, kColumns)).scatter(Eigen::MatrixXd::Random(1, kColumns)).norm(), 0.0);
}

struct Cut {
  const char* name;
  double noise_share;  ///< Of the variance that the dots have.
  double left;         ///< Share of the deviation that must be left.
};

struct LocalTrendWithoutNoise : testing::TestWithParam<Cut> {};

TEST_P(LocalTrendWithoutNoise, ScatterIsCutByTheNoise) {
  const LocalTrend trend(wholeBoard());
  const Eigen::MatrixXd field = surface(0.5);
  const Eigen::MatrixXd scatter = trend.scatter(field);
  const Eigen::MatrixXd cut = withoutNoise(field, trend, GetParam().noise_share * trend.variance(scatter));
  EXPECT_NEAR((field - cut).norm(), (1.0 - GetParam().left) * scatter.norm(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(All, LocalTrendWithoutNoise,
                         testing::Values(Cut{"none", 0.0, 1.0}, Cut{"three_quarters", 0.75, 0.5}, Cut{"all", 1.0, 0.0},
                                         Cut{"more_than_there_is", 4.0, 0.0}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
