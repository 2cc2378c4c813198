#include "diagnose/causes/CauseChoice.h"

#include <gtest/gtest.h>

#include <Eigen/LU>

namespace {

constexpr Eigen::Index kX = static_cast<Eigen::Index>(CauseKind::kRotationX);
constexpr Eigen::Index kZ = static_cast<Eigen::Index>(CauseKind::kRotationZ);
constexpr Eigen::Index kRow = static_cast<Eigen::Index>(CauseKind::kRowOffset);

CauseSet setOf(std::initializer_list<Eigen::Index> places) {
  CauseSet causes;
  for (const Eigen::Index place : places) causes.set(static_cast<std::size_t>(place));
  return causes;
}

/// Every cause known to 0.01 of its expected size, and none there.
RowFit clearFit() {
  RowFit fit;
  fit.sizes.setZero();
  fit.information = CauseMatrix::Identity() * 1e4;
  return fit;
}

/// Rotation x and row offset do the same to the rows; only their sum is known, to 0.01.
RowFit blurredFit(double rotation, double offset) {
  RowFit fit = clearFit();
  fit.information(kX, kX) = fit.information(kRow, kRow) = 1e4 + 1.0;
  fit.information(kX, kRow) = fit.information(kRow, kX) = 1e4;
  fit.sizes[kX] = rotation;
  fit.sizes[kRow] = offset;
  return fit;
}

TEST(CauseChoice, NamesWhatIsLarge) {
  RowFit fit = clearFit();
  fit.sizes[kX] = 0.05;
  fit.sizes[kZ] = -0.04;
  fit.sizes[kRow] = 0.02;
  const CauseChoice choice = chooseCauses(fit);
  EXPECT_EQ(choice.named, setOf({kX, kZ}));
  for (const int group : choice.group) EXPECT_EQ(group, 0);
}

TEST(CauseChoice, NamesNothingWithoutReason) { EXPECT_TRUE(chooseCauses(clearFit()).named.none()); }

TEST(CauseChoiceExcess, IsTheSquaredDistanceInStandardErrors) {
  RowFit fit = clearFit();
  fit.sizes[kX] = 0.03;
  fit.sizes[kZ] = 0.04;
  EXPECT_NEAR(excessOf(fit, kAllCauses), 0.0, 1e-12);
  EXPECT_NEAR(excessOf(fit, setOf({kX})), 16.0, 1e-9);
  EXPECT_NEAR(excessOf(fit, {}), 25.0, 1e-9);
}

/// With one left out the other takes its part.
TEST(CauseChoiceSizes, AreThoseOfTheSmallerFit) {
  const RowFit fit = blurredFit(0.3, 0.2);
  EXPECT_NEAR(sizesOf(fit, ~setOf({kRow}))[kX], 0.5, 1e-3);
  EXPECT_NEAR(sizesOf(fit, ~setOf({kRow}))[kRow], 0.0, 1e-12);
  EXPECT_NEAR(sizesOf(fit, kAllCauses)[kX], 0.3, 1e-12);
}

TEST(CauseChoiceGroup, HoldsWhatIsNotToldApart) {
  RowFit fit = blurredFit(0.3, 0.2);
  fit.sizes[kZ] = 0.08;
  const CauseChoice choice = chooseCauses(fit);
  EXPECT_EQ(choice.named, setOf({kX, kRow, kZ}));
  EXPECT_EQ(choice.group[static_cast<std::size_t>(kX)], 1);
  EXPECT_EQ(choice.group[static_cast<std::size_t>(kRow)], 1);
  EXPECT_EQ(choice.group[static_cast<std::size_t>(kZ)], 0);
}

/// Each is clear by its covariance, but leaving out the other moves it by more than that says.
TEST(CauseChoiceGroup, HoldsWhatLeavingOthersOutHasMoved) {
  // Correlation 0.9, standard errors 0.1: sizes of 0.31 and 0.25 are 3.1 and 2.5 of these.
  RowFit fit = clearFit();
  const double scale = 1.0 / (0.01 * (1.0 - 0.81));
  fit.information(kX, kX) = fit.information(kRow, kRow) = scale;
  fit.information(kX, kRow) = fit.information(kRow, kX) = -0.9 * scale;
  fit.sizes[kX] = 0.31;
  fit.sizes[kRow] = -0.05;
  // Alone the rotation is 0.31 + 0.9 * 0.05, told with an error of hypot(0.1, 0.045).
  EXPECT_NEAR(sizesOf(fit, setOf({kX}))[kX], 0.355, 1e-6);
  EXPECT_EQ(chooseCauses(fit).named, setOf({kX}));
  fit.sizes[kRow] = -0.1;  // 0.4, with hypot(0.1, 0.09): less than three of it.
  const CauseChoice choice = chooseCauses(fit);
  EXPECT_EQ(choice.named, setOf({kX, kRow}));
  EXPECT_EQ(choice.group[static_cast<std::size_t>(kX)], choice.group[static_cast<std::size_t>(kRow)]);
  EXPECT_EQ(choice.group[static_cast<std::size_t>(kX)], 1);
}

TEST(CauseChoiceVariance, IsLessWhereOthersAreKnownNotToBeThere) {
  const RowFit fit = blurredFit(0.0, 0.0);
  EXPECT_NEAR(varianceOf(fit, static_cast<std::size_t>(kX), {}), 0.5, 1e-3);
  EXPECT_NEAR(varianceOf(fit, static_cast<std::size_t>(kX), setOf({kRow})), 1.0 / 10001.0, 1e-12);
}

/// Their sum is 0 to within its error: neither is needed.
TEST(CauseChoiceGroup, IsNotMadeOfNothing) { EXPECT_TRUE(chooseCauses(blurredFit(0.3, -0.3)).named.none()); }

TEST(CauseChoiceGroups, AreNumberedInOrder) {
  constexpr Eigen::Index kFocal = static_cast<Eigen::Index>(CauseKind::kFocalRatio);
  constexpr Eigen::Index kBack = static_cast<Eigen::Index>(CauseKind::kBaselineZ);
  RowFit fit = blurredFit(0.3, 0.2);
  fit.information(kFocal, kFocal) = fit.information(kBack, kBack) = 1e4 + 1.0;
  fit.information(kFocal, kBack) = fit.information(kBack, kFocal) = 1e4;
  fit.sizes[kFocal] = 0.1;
  const CauseChoice choice = chooseCauses(fit);
  EXPECT_EQ(choice.named, setOf({kX, kRow, kFocal, kBack}));
  EXPECT_EQ(choice.group, (std::array<int, kCauses>{1, 0, 0, 2, 1, 0, 2, 0}));
}

}  // namespace
