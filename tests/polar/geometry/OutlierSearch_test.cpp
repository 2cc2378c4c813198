#include "polar/geometry/OutlierSearch.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

std::vector<double> many(double value, std::size_t count) { return std::vector<double>(count, value); }

TEST(OutlierSearch, OneValueFarFromManyIsFound) {
  std::vector<double> values = many(2.0, 200);
  values[57] = 500.0;
  EXPECT_EQ(findOutlier(values), std::optional<std::size_t>(57));
}

TEST(OutlierSearch, TheLimitItselfIsNoOutlier) {
  // One of 101: mean 50, deviation sqrt((5000^2 + 100 x 50^2) / 101) = 500, so the limit is 10 x 500 + 50.
  std::vector<double> values = many(0.0, 101);
  values[3] = 5050.0;
  EXPECT_FALSE(findOutlier(values));
  // 5000: the mean 49.5 drops its fraction, the limit falls to 4999.5, and only that makes an outlier of it.
  values[3] = 5000.0;
  EXPECT_EQ(findOutlier(values), std::optional<std::size_t>(3));
  values.pop_back();
  EXPECT_FALSE(findOutlier(values));
}

TEST(OutlierSearch, TheRunningSumDropsItsFractions) {
  // 200 values of 0.9: every step truncates to 0, so the mean is 0 and the deviation 0.9: 0.9 is below 9.
  EXPECT_FALSE(findOutlier(many(0.9, 200)));
  // 130 values of 1.9 add up to 130 (1.9 -> 1, 2.9 -> 2, ...): mean 1, deviation 0.9, limit 10.
  std::vector<double> values = many(1.9, 130);
  EXPECT_FALSE(findOutlier(values));
  values[9] = 10.0 * 0.9 + 1.0 + 5.0;
  // sum 143, mean 1, deviation sqrt((129 * 0.81 + 196) / 130) = 1.5205: limit 16.2.
  EXPECT_FALSE(findOutlier(values));
  values[9] = 40.0;
  // sum 169, mean 1, deviation sqrt((129 * 0.81 + 1521) / 130) = 3.537: limit 36.4.
  EXPECT_EQ(findOutlier(values), std::optional<std::size_t>(9));
}

TEST(OutlierSearch, ValuesBelowOnePickTheFirst) {
  // Whole parts are all 0, so the first is picked, though the last is larger: 0.5 against a limit of 10 x deviation.
  std::vector<double> values = many(0.0, 300);
  values[0] = 0.5;
  // mean 0, deviation sqrt(0.25 / 300) = 0.0289: limit 0.289.
  EXPECT_EQ(findOutlier(values), std::optional<std::size_t>(0));
  values[0] = 0.0;
  values[299] = 0.5;
  EXPECT_FALSE(findOutlier(values)) << "the picked value is the first, 0";
}

TEST(OutlierSearch, FirstOfEqualWholePartsWins) {
  std::vector<double> values = many(0.0, 400);
  values[10] = 100.1;
  values[20] = 100.9;
  EXPECT_EQ(findOutlier(values), std::optional<std::size_t>(10));
}

TEST(OutlierSearch, WhatNoIntegerHoldsDoesNoHarm) {
  std::vector<double> values = many(1e300, 200);
  values[5] = std::numeric_limits<double>::quiet_NaN();
  values[6] = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(findOutlier(values));
  EXPECT_FALSE(findOutlier({}));
}

}  // namespace
