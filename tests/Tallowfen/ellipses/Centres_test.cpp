#include "Tallowfen/src/ellipses/Centres.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using kestrune::cosineBetween;

TEST(CentresCentreOf, IsNarrowed) {
  kestrune::Ellipse ellipse;
  ellipse.x = 0.1;
  ellipse.y = 16777217;  // 2^24 + 1 has no float.
  EXPECT_EQ(kestrune::centreOf(ellipse), cv::Point2f(0.1F, 16777216.0F));
}

TEST(CentresCosineBetween, ByHand) {
  EXPECT_EQ(cosineBetween({3, 4}, {-4, 3}), 0.0F);
  EXPECT_EQ(cosineBetween({3, 4}, {6, 8}), 1.0F);
  EXPECT_EQ(cosineBetween({3, 4}, {-6, -8}), -1.0F);
  EXPECT_EQ(cosineBetween({3, 4}, {5, 0}), 0.6F);
}

TEST(CentresCosineBetween, IsNanWhereOneIsZero) {
  EXPECT_TRUE(std::isnan(cosineBetween({0, 0}, {1, 2})));
  EXPECT_TRUE(std::isnan(cosineBetween({1, 2}, {0, 0})));
}

// The square of 1e20 is beyond a float, though not beyond a double: a finite product over an infinite length.
TEST(CentresCosineBetween, SquaresAreOfSinglePrecision) { EXPECT_EQ(cosineBetween({1e20F, 0}, {1, 0}), 0.0F); }

}  // namespace
