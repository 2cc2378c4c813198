#include "diagnose/causes/RowPattern.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "diagnose/causes/RowDifferences.h"
#include "tools/causes/SeenScene.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

/// The rows that a scene shows, less its pattern, are those of the true cameras: none.
TEST(RowPatternOf, TheTruthLeavesNothing) {
  SeenScene seen(LensModel::kBrownFive);
  seen.misalignment = {0.15, -0.1, 0.2, 0.002, -2.0, 0.4, 0.6, 0.0};
  const SeenSet set = seen.seen(twoDistances());
  const Misalignment truth{0.15 * kDegree, -0.1 * kDegree, 0.2 * kDegree, 0.002, -2.0, 0.4, 0.6, 0.0};
  const RowDifferences differences(set);
  const std::vector<double> rows = differences.rows({});
  const RowPattern pattern(set.calib, set.model, set.f_scale, truth);
  double most = 0.0;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const RowDot& dot = differences.dots()[k];
    most = std::max(most, std::abs(rows[k]));
    EXPECT_NEAR(rows[k] - pattern.at(dot.left, dot.right), 0.0, 1e-5);
  }
  EXPECT_GT(most, 1.0);
}

TEST(RowPatternOf, APixelThatNoLensSeesIsNoNumber) {
  const SeenSet set = SeenScene(LensModel::kFisheye).seen(twoDistances());
  const RowPattern pattern(set.calib, set.model, 1.0, {});
  EXPECT_TRUE(std::isnan(pattern.at({1e9, 0.0}, {10.0, 10.0})));
  EXPECT_TRUE(std::isnan(pattern.at({10.0, 10.0}, {1e9, 0.0})));
}

TEST(RowPatternMisalignment, IsInRadiansWhereCausesAreInDegrees) {
  polarline::Cause turn;
  turn.name = "rotation_z";
  turn.value = 0.5;
  polarline::Cause shift;
  shift.name = "row_offset";
  shift.value = -2.0;
  polarline::Cause unknown;
  unknown.name = "moon";
  unknown.value = 7.0;
  const Misalignment misalignment = misalignmentOf({turn, shift, unknown});
  Misalignment wanted{};
  at(wanted, CauseKind::kRotationZ) = 0.5 * kDegree;
  at(wanted, CauseKind::kRowOffset) = -2.0;
  for (std::size_t k = 0; k < kCauses; ++k) EXPECT_DOUBLE_EQ(misalignment.at(k), wanted.at(k)) << k;
}

}  // namespace
