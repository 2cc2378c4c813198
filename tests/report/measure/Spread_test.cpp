#include "report/measure/Spread.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace polarline {
namespace {

TEST(SpreadOf, HasWhatOneReckonsByHand) {
  const Spread spread = spreadOf({-4.0, NAN, 1.0, 2.0, 5.0, std::numeric_limits<double>::infinity()});
  EXPECT_EQ(spread.count, 4U);
  EXPECT_EQ(spread.mean, 1.0);
  EXPECT_EQ(spread.mean_abs, 3.0);
  EXPECT_DOUBLE_EQ(spread.sd, std::sqrt((25.0 + 0.0 + 1.0 + 16.0) / 3.0));
  EXPECT_EQ(spread.min, -4.0);
  EXPECT_EQ(spread.median, 1.5);
  EXPECT_EQ(spread.max, 5.0);
  EXPECT_DOUBLE_EQ(spread.p95_abs, 4.85) << "of 1 2 4 5, at 0.95 of the way";
}

TEST(SpreadOf, OneValueHasNoDeviation) {
  const Spread spread = spreadOf({2.0});
  EXPECT_TRUE(std::isnan(spread.sd));
  EXPECT_EQ(spread.median, 2.0);
  EXPECT_EQ(spread.p95_abs, 2.0);
}

TEST(SpreadOf, NothingIsNoNumber) {
  const Spread spread = spreadOf({NAN});
  EXPECT_EQ(spread.count, 0U);
  EXPECT_TRUE(std::isnan(spread.mean) && std::isnan(spread.median) && std::isnan(spread.max));
}

TEST(SpreadFarthest, AreTheLargestBySize) {
  EXPECT_EQ(farthestOf({0.5, -3.0, NAN, 2.0, 3.0}, 3), (std::vector<std::size_t>{1, 4, 3}));
  EXPECT_EQ(farthestOf({0.5}, 3), std::vector<std::size_t>{0});
  EXPECT_TRUE(farthestOf({}, 3).empty());
}

}  // namespace
}  // namespace polarline
