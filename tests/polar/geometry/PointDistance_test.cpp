#include "polar/geometry/PointDistance.h"

#include <gtest/gtest.h>

#include <stdexcept>

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

TEST(PointDistanceLengthByDoubles, SquaresAreNotRounded) {
  EXPECT_EQ(lengthByDoubles({4097, 0, 0}), 4097.0);
  EXPECT_EQ(lengthByDoubles({2, 3, 6}), 7.0);
}

TEST(PointDistanceNarrowedDifference, IsNarrowedBehindTheSubtraction) {
  // 16777217 has no place in single precision, its difference to 16777216 has.
  EXPECT_EQ(narrowedDifference({16777217.0, 5.0, 0.1}, {16777216.0, 7.5, 0.0}), cv::Point3f(1.0F, -2.5F, 0.1F));
}

TEST(PointDistanceNarrowedDifference, WantsThreeNumbersOfEach) {
  EXPECT_THROW(narrowedDifference({1, 2}, {1, 2, 3}), std::out_of_range);
  EXPECT_THROW(narrowedDifference({1, 2, 3}, {1, 2}), std::out_of_range);
}

}  // namespace
