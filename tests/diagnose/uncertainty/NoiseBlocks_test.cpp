#include "diagnose/uncertainty/NoiseBlocks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "support/NormalDraw.h"

namespace {

constexpr int kColumns = 12;
constexpr int kDots = 144;

BoardGrid wholeBoard() {
  std::vector<std::int32_t> ids(kDots);
  std::iota(ids.begin(), ids.end(), 0);
  return {ids, kColumns};
}

/// Noise that all dots of a row share.
CentreNoise sharedByRows() {
  NormalDraw normal(4);
  CentreNoise noise;
  cv::Vec2d shift;
  for (std::int32_t id = 0; id < kDots; ++id) {
    if (id % kColumns == 0) shift = {normal(), 3.0 * normal()};
    noise[id] = {{0.0, 0.0}, shift};
  }
  return noise;
}

TEST(NoiseBlocks, CovarianceIsThatOfTheDots) {
  const NoiseBlocks blocks({{0, {{}, {1.0, 2.0}}}, {7, {{}, {-3.0, 0.0}}}}, kColumns);
  EXPECT_EQ(blocks.covariance(), (Eigen::Matrix2d() << 5.0, 1.0, 1.0, 2.0).finished());
}

TEST(NoiseBlocks, DrawsHaveTheCovarianceAndNoMean) {
  const NoiseBlocks blocks(sharedByRows(), kColumns);
  SeededRandom random(1);
  Eigen::Matrix2d squares = Eigen::Matrix2d::Zero();
  Eigen::Vector2d sum = Eigen::Vector2d::Zero();
  Eigen::Matrix2Xd shifts;
  constexpr int kDraws = 400;
  for (int k = 0; k < kDraws; ++k) {
    blocks.draw(wholeBoard(), random, shifts);
    ASSERT_EQ(shifts.cols(), kDots);
    squares += shifts * shifts.transpose();
    sum += shifts.rowwise().sum();
  }
  EXPECT_LT((squares / (kDots * kDraws) - blocks.covariance()).norm(), 0.05 * blocks.covariance().norm());
  EXPECT_LT((sum / (kDots * kDraws)).norm(), 0.1);
}

TEST(NoiseBlocks, DrawsMoreWhereThereIsMore) {
  NormalDraw normal(8);
  CentreNoise noise;
  for (std::int32_t id = 0; id < kDots; ++id) {
    const double size = id % kColumns < kColumns / 2 ? 1.0 : 3.0;
    noise[id] = {{0.0, 0.0}, {size * normal(), size * normal()}};
  }
  const NoiseBlocks blocks(noise, kColumns);
  SeededRandom random(1);
  Eigen::Matrix2Xd shifts;
  double in_first = 0.0;
  double in_last = 0.0;
  double all = 0.0;
  constexpr int kDraws = 400;
  for (int k = 0; k < kDraws; ++k) {
    blocks.draw(wholeBoard(), random, shifts);
    all += shifts.squaredNorm() / kDots / kDraws;
    for (int row = 0; row < kDots; row += kColumns) {
      in_first += shifts.col(row).squaredNorm();
      in_last += shifts.col(row + kColumns - 1).squaredNorm();
    }
  }
  EXPECT_NEAR(all, blocks.covariance().trace(), 0.05 * all);
  EXPECT_NEAR(std::sqrt(in_last / in_first), 3.0, 0.8);
}

TEST(NoiseBlocks, NeighboursKeepWhatTheyShare) {
  const NoiseBlocks blocks(sharedByRows(), kColumns);
  SeededRandom random(1);
  Eigen::Matrix2Xd shifts;
  int same_in_block = 0;
  int same_across = 0;
  // The levels scale both components alike: what is shared is the direction.
  const auto same = [&](int one, int other) {
    const double across = shifts(0, one) * shifts(1, other) - shifts(1, one) * shifts(0, other);
    return std::abs(across) < 1e-9 ? 1 : 0;
  };
  for (int k = 0; k < 200; ++k) {
    blocks.draw(wholeBoard(), random, shifts);
    same_in_block += same(13, 14);  // One block: columns 0 to 2.
    same_across += same(14, 15);    // Two blocks.
  }
  EXPECT_GT(same_in_block, 150);  // Blocks at the edge are filled up with single dots.
  EXPECT_LT(same_across, 50);
}

TEST(NoiseBlocks, SameSeedDrawsTheSame) {
  const NoiseBlocks blocks(sharedByRows(), kColumns);
  SeededRandom one(5);
  SeededRandom other(5);
  Eigen::Matrix2Xd first;
  Eigen::Matrix2Xd second;
  blocks.draw(wholeBoard(), one, first);
  blocks.draw(wholeBoard(), other, second);
  EXPECT_EQ(first, second);
}

}  // namespace
