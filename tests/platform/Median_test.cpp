#include "platform/Median.h"

#include <gtest/gtest.h>

namespace {

TEST(MedianOfTwoMiddles, IsTheUpperOrTheLowerOneAsTheNameSays) {
  std::vector<double> even = {4.0, 1.0, 3.0, 2.0};
  EXPECT_EQ(rank::median(even), 2.0);
  EXPECT_EQ(rank::upperMedian(even), 3.0);
  std::vector<float> odd = {5.0F, 1.0F, 3.0F};
  EXPECT_EQ(rank::upperMedian(odd), 3.0F);
  EXPECT_EQ(rank::median({5.0, 1.0, 3.0}), 3.0);
}

TEST(MedianQuantile, IsAValueOfTheList) {
  const std::vector<double> values = {50.0, 10.0, 40.0, 20.0, 30.0};
  EXPECT_EQ(rank::quantile(values, 0.0), 10.0);
  EXPECT_EQ(rank::quantile(values, 0.49), 20.0);
  EXPECT_EQ(rank::quantile(values, 0.75), 40.0);
  EXPECT_EQ(rank::quantile(values, 1.0), 50.0);
  EXPECT_TRUE(std::isnan(rank::quantile({}, 0.5)));
}

/// Distances from 10: 0, 1, 1, 2, 90.
TEST(MedianSpread, IsNotMovedByOneThatIsFarOff) {
  EXPECT_DOUBLE_EQ(rank::spreadAround({10.0, 11.0, 9.0, 12.0, 100.0}, 10.0), 1.4826);
}

}  // namespace
