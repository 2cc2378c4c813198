#include "diagnose/uncertainty/Interval.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(IntervalQuantile, LiesBetweenItsNeighbours) {
  const std::vector<double> values = {1.0, 2.0, 4.0, 8.0, 16.0};
  EXPECT_EQ(quantileOf(values, 0.0), 1.0);
  EXPECT_EQ(quantileOf(values, 0.5), 4.0);
  EXPECT_EQ(quantileOf(values, 0.625), 6.0);
  EXPECT_EQ(quantileOf(values, 1.0), 16.0);
  EXPECT_EQ(quantileOf({3.0}, 0.7), 3.0);
}

/// 0, 1, ... 40: mean 20, the quantiles 1 and 39; the last one moved out by 41, which moves the mean by 1.
std::vector<double> skewed() {
  std::vector<double> values;
  for (int k = 40; k >= 0; --k) values.push_back(k);
  values.front() += 41.0;
  return values;
}

TEST(Interval, IsTheScatterOfTheRepetitionsTurnedAboutTheFigure) {
  const auto interval = uncertaintyOf({"dy_means", 100.0, 0.0, skewed()});
  ASSERT_TRUE(interval);
  EXPECT_EQ(interval->name, "dy_means");
  EXPECT_NEAR(interval->low95, 100.0 - (39.0 - 21.0), 1e-12);
  EXPECT_NEAR(interval->high95, 100.0 + (21.0 - 1.0), 1e-12);
  // Squares about the mean: of 0 to 40 41 (41^2 - 1) / 12 = 5740; the sum of squares grows by 81^2 - 40^2 = 4961, and
  // 41 (21^2 - 20^2) = 1681 go to the mean.
  EXPECT_NEAR(interval->sd, std::sqrt((5740.0 + 4961.0 - 1681.0) / 40.0), 1e-12);
}

TEST(Interval, FigureThatCountsDotsGetsHalfAStepOnEitherSide) {
  const auto interval = uncertaintyOf({"dy_ratio", 0.5, 0.1, {0.5, 0.5, 0.5}});
  ASSERT_TRUE(interval);
  EXPECT_EQ(interval->sd, 0.0);
  EXPECT_DOUBLE_EQ(interval->low95, 0.45);
  EXPECT_DOUBLE_EQ(interval->high95, 0.55);
}

TEST(Interval, NeverGoesBelowZero) { EXPECT_EQ(uncertaintyOf({"tri_rms", 1.0, 0.0, skewed()})->low95, 0.0); }

TEST(Interval, NeverGoesAboveWhatTheFigureCanBe) {
  const auto interval = uncertaintyOf({"dy_ratio", 1.0, 0.1, {0.9, 0.9, 1.0}, 1.0});
  ASSERT_TRUE(interval);
  EXPECT_EQ(interval->high95, 1.0);
  EXPECT_LT(interval->low95, 1.0);
}

TEST(Interval, WhatIsNoNumberHasNone) {
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(uncertaintyOf({"gt_rms", kNoNumber, 0.0, {1.0, 2.0}}));
  EXPECT_FALSE(uncertaintyOf({"gt_rms", 1.0, 0.0, {1.0, kNoNumber}}));
  EXPECT_FALSE(uncertaintyOf({"gt_rms", 1.0, 0.0, {1.0, std::numeric_limits<double>::infinity()}}));
}

}  // namespace
