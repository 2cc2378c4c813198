#include "diagnose/warnings/RowNoise.h"

#include <gtest/gtest.h>

#include <random>

namespace diagnose {
namespace {

constexpr int kColumns = 30;

/// 30 x 30 row differences: a slope over the board, as misalignments make them, and noise.
std::map<std::int32_t, double> rowsWith(double noise) {
  std::mt19937 random(5);
  std::normal_distribution<double> normal(0.0, 1.0);
  std::map<std::int32_t, double> rows;
  for (int id = 0; id < kColumns * kColumns; ++id)
    rows[id] = 1.5 + 0.1 * (id % kColumns) - 0.07 * (id / kColumns) + noise * normal(random);
  return rows;
}

TEST(RowNoise, IsThatOfTheDots) {
  for (const double noise : {0.02, 0.3}) EXPECT_NEAR(rowNoise(rowsWith(noise), kColumns).value(), noise, 0.1 * noise);
}

TEST(RowNoise, CountsNoSlope) { EXPECT_NEAR(rowNoise(rowsWith(0.0), kColumns).value(), 0.0, 1e-12); }

TEST(RowNoise, NeedsDotsSideBySide) {
  EXPECT_FALSE(rowNoise({}, kColumns));
  std::map<std::int32_t, double> rows = rowsWith(0.1);
  std::erase_if(rows, [](const auto& entry) { return entry.first % 2 == 0; });
  EXPECT_FALSE(rowNoise(rows, kColumns));
}

}  // namespace
}  // namespace diagnose
