#include "diagnose/causes/RowFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tools/causes/CentreErrors.h"
#include "tools/causes/SeenScene.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

SeenScene misalignedScene() {
  SeenScene seen(LensModel::kBrownEight);
  seen.misalignment = {0.1, -0.08, 0.15, 0.0015, 2.0, 0.3, -0.4, 0.005};
  return seen;
}

constexpr Misalignment kTruth{0.1 * kDegree, -0.08 * kDegree, 0.15 * kDegree, 0.0015, 2.0, 0.3, -0.4, 0.005};

TEST(RowFit, OfExactDotsIsTheTruth) {
  const SeenSet set = misalignedScene().seen(twoDistances());
  const RowDifferences differences(set);
  const RowFitter fitter(differences, expectedSizes(set.calib));
  const RowFit fit = fitter.fit();
  const Misalignment expected = expectedSizes(set.calib);
  for (std::size_t k = 0; k < kCauses; ++k) {
    EXPECT_NEAR(fitter.misalignmentOf(fit.sizes).at(k), kTruth.at(k), 1e-3 * expected.at(k)) << k;
  }
  EXPECT_LT(fit.rows.cwiseAbs().maxCoeff(), 1e-4);
}

/// Every twentieth dot is off by some pixels: the others fit as before, and these get no trust.
TEST(RowFit, TrustsNoOutliers) {
  SeenScene seen = misalignedScene();
  seen.noise = OwnErrors(0.005, 4);
  SeenSet set = seen.seen(twoDistances());
  for (SeenPair& pair : set.pairs) {
    for (std::size_t k = 0; k < pair.dots.size(); k += 20) pair.dots[k].right.y += 4.0;
  }
  const RowDifferences differences(set);
  const RowFit fit = RowFitter(differences, expectedSizes(set.calib)).fit();
  for (Eigen::Index k = 0; k < fit.rows.size(); ++k) {
    const bool is_outlier = (k % (13 * 17)) % 20 == 0;
    if (is_outlier) {
      EXPECT_EQ(fit.trust[k], 0.0);
    } else {
      EXPECT_LT(std::abs(fit.rows[k]), 0.06);
    }
  }
  EXPECT_NEAR(fit.scale * differences.dots()[100].sd, 0.005 * std::sqrt(2.0), 1.5e-3);
}

TEST(RowFitRefit, UsesOnlyTheCausesGiven) {
  SeenScene seen(LensModel::kBrownFive);
  seen.misalignment.rotation_x = 0.1;
  seen.noise = OwnErrors(0.005, 6);
  const SeenSet set = seen.seen(twoDistances());
  const RowDifferences differences(set);
  const RowFitter fitter(differences, expectedSizes(set.calib));
  CauseSet one;
  one.set(static_cast<std::size_t>(CauseKind::kRotationX));
  const RowFit fit = fitter.refit(fitter.fit(), one, 1.0);
  const Misalignment misalignment = fitter.misalignmentOf(fit.sizes);
  EXPECT_NEAR(misalignment[0], 0.1 * kDegree, 2e-6);
  for (std::size_t k = 1; k < kCauses; ++k) EXPECT_EQ(misalignment.at(k), 0.0);
}

/// Four times the variance of sums is a quarter of the information, that of the expected sizes aside.
TEST(RowFitRefit, TakesNeighboursThatErrAlikeForLess) {
  SeenScene seen(LensModel::kBrownFive);
  seen.noise = OwnErrors(0.005, 8);
  const SeenSet set = seen.seen(twoDistances());
  const RowDifferences differences(set);
  const RowFitter fitter(differences, expectedSizes(set.calib));
  const RowFit all = fitter.fit();
  const CauseMatrix own = fitter.refit(all, kAllCauses, 1.0).information - CauseMatrix::Identity();
  const CauseMatrix alike = fitter.refit(all, kAllCauses, 4.0).information - CauseMatrix::Identity();
  EXPECT_NEAR(alike(0, 0) / own(0, 0), 0.25, 0.01);
}

}  // namespace
