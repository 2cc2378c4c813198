#include "polar/PointDistance.h"

#include <gtest/gtest.h>

namespace {

TEST(PointDistance, LengthOfTheDifference) { EXPECT_EQ(pointDistance({3, 6, 14}, {1, 3, 8}), 7.0); }

TEST(PointDistance, SquaresAreRoundedToSinglePrecision) {
  // 4097^2 = 16785409 is odd and above 2^24.
  EXPECT_EQ(pointDistance({4097, 0, 0}, {0, 0, 0}), std::sqrt(16785408.0));
}

TEST(PointDistance, RootIsTakenInDouble) {
  EXPECT_EQ(pointDistance({1, 1, 0}, {0, 0, 0}), std::sqrt(2.0));
  EXPECT_NE(pointDistance({1, 1, 0}, {0, 0, 0}), static_cast<double>(std::sqrt(2.0F)));
}

}  // namespace
