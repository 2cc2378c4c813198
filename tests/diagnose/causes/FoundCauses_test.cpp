#include "diagnose/causes/FoundCauses.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <numeric>

#include "tools/causes/CentreErrors.h"
#include "tools/causes/SeenScene.h"

namespace {

FoundCauses found(const SeenScene& seen, const std::vector<scene::PoseWish>& wishes) {
  const SeenSet set = seen.seen(wishes);
  return findCauses(RowDifferences(set), expectedSizes(set.calib));
}

/// Rows of 1.2 pixels against noise of 0.007: what the causes explain is all but some millionths.
TEST(FoundCausesShares, AddUpToWhatIsExplained) {
  SeenScene seen(LensModel::kBrownFive);
  seen.misalignment.rotation_z = 0.2;
  seen.misalignment.row_offset = -1.0;
  seen.noise = OwnErrors(0.005, 11);
  const FoundCauses causes = found(seen, twoDistances());
  EXPECT_NEAR(std::accumulate(causes.shares.begin(), causes.shares.end(), 0.0), 1.0, 1e-3);
  EXPECT_NEAR(causes.rows_after, 0.005 * std::sqrt(2.0) * std::sqrt(2.0 / std::numbers::pi), 4e-4);
  EXPECT_NEAR(causes.spread_after, 0.005 * std::sqrt(2.0), 4e-4);
}

TEST(FoundCausesOutliers, AreCountedAndInNoMeanOfTheOthers) {
  SeenScene seen(LensModel::kBrownFive);
  seen.noise = OwnErrors(0.02, 13);
  SeenSet set = seen.seen(twoDistances());
  set.pairs[0].dots[7].right.y += 300.0F;
  const FoundCauses causes = findCauses(RowDifferences(set), expectedSizes(set.calib));
  EXPECT_EQ(causes.outliers, 1U);
  EXPECT_NEAR(causes.kept_before, 0.02 * std::sqrt(2.0) * std::sqrt(2.0 / std::numbers::pi), 2e-3);
  EXPECT_GT(causes.rows_before, 10.0 * causes.kept_before);
}

/// One picture of a board square to the view: a longer focal length and a way back both scale it, but the way back also
/// turns the baseline, so it would need others beside it.
TEST(FoundCausesAlone, IsWhatAMemberOfAGroupWouldBe) {
  SeenScene seen(LensModel::kBrownFive);
  seen.misalignment.focal_ratio = 0.002;
  seen.noise = OwnErrors(0.01, 12);
  const FoundCauses causes = found(seen, {{0.0, 0.0, 0.0, 0.9}});
  const auto focal = static_cast<std::size_t>(CauseKind::kFocalRatio);
  const auto back = static_cast<std::size_t>(CauseKind::kBaselineZ);
  ASSERT_NE(causes.choice.group.at(focal), 0);
  EXPECT_EQ(causes.choice.group.at(focal), causes.choice.group.at(back));
  ASSERT_TRUE(causes.alone.at(focal));
  EXPECT_NEAR(*causes.alone.at(focal), 0.002, 1e-4);
  EXPECT_FALSE(causes.alone.at(back));
  EXPECT_GT(causes.sds.at(focal), 1e-3);
}

}  // namespace
