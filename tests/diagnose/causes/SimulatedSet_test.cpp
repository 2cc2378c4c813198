#include "tools/causes/SimulatedSet.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "tools/causes/CentreErrors.h"

namespace {

using causes::setKind;
using causes::SimulatedSet;

constexpr std::array kNames{"rotation_x", "rotation_y", "rotation_z", "focal_ratio",
                            "row_offset", "baseline_y", "baseline_z", "k1"};

int causesIn(const scene::Misalignment& misalignment) {
  int count = 0;
  for (const char* name : kNames) count += misalignment.*misalignmentField(name) != 0.0 ? 1 : 0;
  return count;
}

/// Causes of 120 sets of a kind.
int causesOf(const char* kind) {
  int count = 0;
  for (std::uint64_t number = 0; number < 120; ++number)
    count += causesIn(SimulatedSet(setKind(kind), number).scene.misalignment);
  return count;
}

TEST(SimulatedSet, HasTheCausesOfItsKind) {
  EXPECT_EQ(causesOf("aligned_single"), 0);
  EXPECT_EQ(causesOf("one_single"), 120);
  EXPECT_EQ(causesOf("all_shared"), 120 * 8);
  EXPECT_NEAR(causesOf("some_single"), 0.35 * 120 * 8, 3.0 * std::sqrt(120 * 8 * 0.35 * 0.65));
}

TEST(SimulatedSet, HasOneToSixPairsOfEveryDot) {
  std::array<int, 7> sets{};
  for (std::uint64_t number = 0; number < 36; ++number) {
    const SimulatedSet set(setKind("some_shared"), number);
    ++sets.at(set.seen.pairs.size());
    for (const SeenPair& pair : set.seen.pairs) EXPECT_EQ(pair.dots.size(), 9U * 13U);
  }
  EXPECT_EQ(sets, (std::array{0, 6, 6, 6, 6, 6, 6}));
}

/// Five of a hundred, at most 3 pixels each way beyond what the same set has without.
TEST(SimulatedSet, HasOutliersWhereItsKindSaysSo) {
  int outliers = 0;
  int dots = 0;
  for (std::uint64_t number = 30; number < 36; ++number) {
    const SimulatedSet without(setKind("some_shared"), number);
    const SimulatedSet with(setKind("some_outliers"), number);
    for (std::size_t pair = 0; pair < with.seen.pairs.size(); ++pair) {
      for (std::size_t dot = 0; dot < with.seen.pairs[pair].dots.size(); ++dot) {
        const cv::Point2d off = with.seen.pairs[pair].dots[dot].right - without.seen.pairs[pair].dots[dot].right;
        EXPECT_LE(std::max(std::abs(off.x), std::abs(off.y)), 3.0);
        outliers += off != cv::Point2d() ? 1 : 0;
        ++dots;
      }
    }
  }
  EXPECT_NEAR(outliers, 0.05 * dots, 4.0 * std::sqrt(0.05 * dots));
}

TEST(SimulatedSet, IsTheSameAgainAndAnotherOneByAnotherNumber) {
  const SimulatedSet set(setKind("some_single"), 3);
  const SimulatedSet again(setKind("some_single"), 3);
  const SimulatedSet other(setKind("some_single"), 39);  // Of the same lens.
  EXPECT_EQ(set.seen.pairs[0].dots[5].right, again.seen.pairs[0].dots[5].right);
  EXPECT_EQ(set.scene.misalignment, again.scene.misalignment);
  EXPECT_NE(set.scene.misalignment, other.scene.misalignment);
}

TEST(SimulatedSet, OfAnUnknownKindIsRefused) { EXPECT_THROW(setKind("most"), std::out_of_range); }

/// Of 900 blocks of nine dots: the variance of a block's mean says how much of it they share, 0.64 and a ninth of 0.36.
TEST(SimulatedSetErrors, AreSharedByNineNeighboursOfOnePicture) {
  SharedErrors errors(0.02, 1);
  double whole = 0.0;
  double common = 0.0;
  constexpr int kBlocks = 900;
  for (int block = 0; block < kBlocks; ++block) {
    cv::Point2d sum;
    for (int dot = 0; dot < 9; ++dot) {
      const cv::Point2d left = errors(dot / 3, dot % 3);
      errors(dot / 3, dot % 3);  // The right picture's.
      whole += left.dot(left) / (2.0 * 9.0 * kBlocks);
      sum += left / 9.0;
    }
    common += sum.dot(sum) / (2.0 * kBlocks);
  }
  EXPECT_NEAR(std::sqrt(whole), 0.02, 0.001);
  EXPECT_NEAR(common / whole, 0.68, 0.04);
}

}  // namespace
