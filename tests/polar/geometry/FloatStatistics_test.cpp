#include "polar/geometry/FloatStatistics.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(FloatStatistics, VarianceIsOfThePopulationAndNotRooted) {
  const FloatStatistics statistics = floatStatistics({1, 2, 6});
  EXPECT_EQ(statistics.mean, 3.0F);
  EXPECT_EQ(statistics.variance, 14.0F / 3.0F);
}

TEST(FloatStatistics, SumsInSinglePrecisionAndListOrder) {
  // 2^24 swallows each one that is added to it; ones that come first reach it together.
  EXPECT_EQ(floatStatistics({16777216, 1, 1}).mean, 16777216.0F / 3.0F);
  EXPECT_EQ(floatStatistics({1, 1, 16777216}).mean, 16777218.0F / 3.0F);
}

TEST(FloatStatistics, EmptyListGivesNoNumbers) {
  EXPECT_TRUE(std::isnan(floatStatistics({}).mean));
  EXPECT_TRUE(std::isnan(floatStatistics({}).variance));
}

}  // namespace
