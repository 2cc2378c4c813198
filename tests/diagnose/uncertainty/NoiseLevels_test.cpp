#include "diagnose/uncertainty/NoiseLevels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "support/NormalDraw.h"

namespace {

constexpr int kColumns = 21;
constexpr int kRows = 13;

BoardGrid gridOf(int rows) {
  std::vector<std::int32_t> ids(static_cast<std::size_t>(rows) * kColumns);
  std::iota(ids.begin(), ids.end(), 0);
  return {ids, kColumns};
}

/// Three times as much noise in the last column as in the first, evenly more in between.
double toTheRight(int column) { return 1.0 + 2.0 * column / (kColumns - 1); }

Eigen::Matrix2Xd noiseOn(const BoardGrid& grid) {
  NormalDraw normal(3);
  Eigen::Matrix2Xd shifts(2, static_cast<Eigen::Index>(grid.count()));
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    const double size = toTheRight(grid.column(dot));
    shifts.col(static_cast<Eigen::Index>(dot)) << size * normal(), size * normal();
  }
  return shifts;
}

double meanSquare(const BoardGrid& grid, const NoiseLevels& levels) {
  double squares = 0.0;
  for (std::size_t dot = 0; dot < grid.count(); ++dot)
    squares += std::pow(levels.at(grid.row(dot), grid.column(dot)), 2.0);
  return squares / static_cast<double>(grid.count());
}

TEST(NoiseLevels, FollowTheNoiseOverTheBoard) {
  const BoardGrid grid = gridOf(kRows);
  const NoiseLevels levels(grid, noiseOn(grid));
  // The mean of (1 + 2 u)^2 over 21 even steps of u from 0 to 1 is 1 + 2 + 4 * 41 / 120.
  const double whole = std::sqrt(3.0 + 4.0 * 41.0 / 120.0);
  for (const int column : {0, 5, 10, 15, 20})
    EXPECT_NEAR(levels.at(kRows / 2, column), toTheRight(column) / whole, 0.15) << column;
  EXPECT_NEAR(meanSquare(grid, levels), 1.0, 1e-9);
}

TEST(NoiseLevels, BesideTheBoardAreThoseOfItsEdge) {
  const BoardGrid grid = gridOf(kRows);
  const NoiseLevels levels(grid, noiseOn(grid));
  EXPECT_EQ(levels.at(-1, 30), levels.at(0, 20));
  EXPECT_EQ(levels.at(13, -2), levels.at(12, 0));
}

TEST(NoiseLevels, FewDotsAreAllAlike) {
  const BoardGrid grid = gridOf(5);  // 105 dots.
  const NoiseLevels levels(grid, noiseOn(grid));
  EXPECT_EQ(levels.at(0, 0), 1.0);
  EXPECT_EQ(levels.at(4, 20), 1.0);
}

TEST(NoiseLevels, NoNoiseIsAllAlike) {
  const BoardGrid grid = gridOf(kRows);
  EXPECT_EQ(NoiseLevels(grid, Eigen::Matrix2Xd::Zero(2, 273)).at(0, 0), 1.0);
}

/// A single dot with all the noise, at a corner.
TEST(NoiseLevels, DontFollowASingleDot) {
  const BoardGrid grid = gridOf(kRows);
  Eigen::Matrix2Xd shifts = Eigen::Matrix2Xd::Zero(2, 273);
  shifts(0, 0) = 1.0;
  const NoiseLevels levels(grid, shifts);
  double least = levels.at(0, 0);
  for (std::size_t dot = 0; dot < grid.count(); ++dot)
    least = std::min(least, levels.at(grid.row(dot), grid.column(dot)));
  EXPECT_NEAR(levels.at(0, 0) / least, 4.0, 1e-9);
  EXPECT_NEAR(meanSquare(grid, levels), 1.0, 1e-9);
}

}  // namespace
