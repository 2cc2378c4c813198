#include "diagnose/causes/RowDifferences.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "tools/causes/SeenScene.h"
#include "tools/scene/IdealRectification.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

double greatest(const std::vector<double>& rows) {
  double most = 0.0;
  for (const double row : rows) most = std::max(most, std::abs(row));
  return most;
}

class RowDifferencesOf : public testing::TestWithParam<LensModel> {};

TEST_P(RowDifferencesOf, TrueCamerasVanish) {
  SeenScene seen(GetParam());
  seen.misalignment = {0.15, -0.1, 0.2, 0.002, -2.0, 0.4, 0.6, 0.0};
  const RowDifferences differences(seen.seen(twoDistances()));
  EXPECT_EQ(differences.dots().size(), 3U * 13U * 17U);
  EXPECT_GT(greatest(differences.rows({})), 1.0);
  const Misalignment truth{0.15 * kDegree, -0.1 * kDegree, 0.2 * kDegree, 0.002, -2.0, 0.4, 0.6, 0.0};
  // The cells of a polynomial camera are fitted anew to the misaligned lens, which they follow to some thousandths.
  EXPECT_LT(greatest(differences.rows(truth)), GetParam() == LensModel::kPoly ? 5e-3 : 1e-5);
}

INSTANTIATE_TEST_SUITE_P(Lenses, RowDifferencesOf,
                         testing::Values(LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye,
                                         LensModel::kPoly));

/// A camera that looks down sees everything higher up: a left row less a smaller right row is more.
TEST(RowDifferencesSign, IsLeftLessRight) {
  SeenScene seen(LensModel::kBrownFive);
  seen.misalignment.rotation_x = 0.1;
  const double focal = scene::rectifiedFocal(seen.lenses, 1.0);
  for (const double row : RowDifferences(seen.seen(twoDistances())).rows({})) {
    EXPECT_GT(row, focal * 0.1 * kDegree * 0.99);
    EXPECT_LT(row, focal * 0.1 * kDegree * 1.4);
  }
}

TEST(RowDifferencesScale, GoesWithThatOfTheRectification) {
  SeenScene seen(LensModel::kFisheye);
  seen.misalignment.row_offset = 1.0;
  const double whole = greatest(RowDifferences(seen.seen(twoDistances())).rows({}));
  seen.f_scale = 0.5;
  EXPECT_NEAR(greatest(RowDifferences(seen.seen(twoDistances())).rows({})), 0.5 * whole, 1e-9);
}

TEST(RowDifferencesDots, ThatAreNoNumbersAreLeftOut) {
  SeenSet set = SeenScene(LensModel::kBrownEight).seen(twoDistances());
  set.pairs[0].dots[3].left.x = std::numeric_limits<double>::quiet_NaN();
  set.pairs[1].dots[4].right.y = std::numeric_limits<double>::infinity();
  set.pairs[2].dots[5].right.x = 1e9;  // Beyond what any lens images.
  EXPECT_EQ(RowDifferences(set).dots().size(), 3U * 13U * 17U - 3U);
}

TEST(RowDifferencesDots, OfManyPairsAreAnEvenChoice) {
  SeenSet set = SeenScene(LensModel::kBrownEight).seen({twoDistances()[0]});
  while (set.pairs.size() < 60) set.pairs.push_back(set.pairs[0]);
  const RowDifferences differences(set);
  EXPECT_LE(differences.dots().size(), 6060U);
  EXPECT_GE(differences.dots().size(), 4000U);
  EXPECT_EQ(differences.dots().back().pair, 59U);
}

/// A refined dot's own covariance counts; one that is not known stands for 0.02 pixels in each picture.
TEST(RowDifferencesErrors, AreThoseOfTheDots) {
  SeenSet set = SeenScene(LensModel::kBrownFive).seen({twoDistances()[1]});
  SeenDot& middle = set.pairs[0].dots[6 * 17 + 8];
  const auto sd = [&] { return RowDifferences(set).dots()[6 * 17 + 8].sd; };
  EXPECT_NEAR(sd(), 0.02 * std::sqrt(2.0), 0.003);
  middle.left_covariance = middle.right_covariance = cv::Matx22d(4e-2, 0, 0, 9e-6);
  EXPECT_NEAR(sd(), 0.003 * std::sqrt(2.0), 0.003);
}

}  // namespace
