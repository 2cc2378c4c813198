#include "diagnose/uncertainty/OverPairs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/NormalDraw.h"

namespace {

TEST(OverPairs, FourPairsAreTooFew) {
  EXPECT_FALSE(meanUncertainty({1.0, 2.0, 3.0, 4.0}));
  EXPECT_TRUE(meanUncertainty({1.0, 2.0, 3.0, 4.0, 5.0}));
}

TEST(OverPairs, StandardErrorIsTheDeviationByTheRootOfTheirNumber) {
  const auto mean = meanUncertainty({1.0, 2.0, 3.0, 4.0, 5.0});  // Sample variance 10 / 4.
  EXPECT_NEAR(mean->sd, std::sqrt(2.5 / 5.0), 1e-15);
  EXPECT_LT(mean->low95, 3.0 - 1.5 * mean->sd);
  EXPECT_GT(mean->high95, 3.0 + 1.5 * mean->sd);
}

TEST(OverPairs, EqualValuesHaveNoDoubt) {
  const auto mean = meanUncertainty(std::vector<double>(8, 0.25));
  EXPECT_EQ(mean->sd, 0.0);
  EXPECT_EQ(mean->low95, 0.25);
  EXPECT_EQ(mean->high95, 0.25);
}

TEST(OverPairs, SameValuesGiveTheSame) {
  const std::vector<double> values = {0.1, 0.4, 0.2, 0.9, 0.3, 0.5};
  EXPECT_EQ(meanUncertainty(values)->low95, meanUncertainty(values)->low95);
  EXPECT_EQ(meanUncertainty(values)->high95, meanUncertainty(values)->high95);
}

TEST(OverPairs, WhatIsNoNumberHasNone) {
  EXPECT_FALSE(meanUncertainty({1.0, 2.0, 3.0, 4.0, std::numeric_limits<double>::quiet_NaN()}));
}

struct OverPairsCoverage : testing::TestWithParam<int> {};

TEST_P(OverPairsCoverage, NinetyToNinetyEightOfAHundredIntervalsHoldTheMean) {
  NormalDraw normal(11);
  constexpr int kSets = 400;
  int held = 0;
  for (int set = 0; set < kSets; ++set) {
    std::vector<double> values;
    for (int k = 0; k < GetParam(); ++k) values.push_back(5.0 + normal());
    const auto mean = meanUncertainty(values);
    held += mean->low95 <= 5.0 && 5.0 <= mean->high95 ? 1 : 0;
  }
  EXPECT_GE(held, kSets * 90 / 100);
  EXPECT_LE(held, kSets * 98 / 100);
}

INSTANTIATE_TEST_SUITE_P(Pairs, OverPairsCoverage, testing::Values(5, 8, 30));

}  // namespace
