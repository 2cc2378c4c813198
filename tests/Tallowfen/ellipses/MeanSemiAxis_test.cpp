#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

#include <gtest/gtest.h>

#include <cmath>

#include "HandMadeEllipses.h"

namespace {

using handmade::ellipse;
using handmade::List;
using kestrune::MeanSemiAxisNear;
using kestrune::NearbyDots;
using kestrune::RingTargetConfig;

TEST(MeanSemiAxisNearbyDots, RingBoardsReachFiveSemiAxes) {
  for (const int type : {1, 2}) {
    RingTargetConfig config;
    config.board_type = type;
    config.ratio_solid = 0.25F;
    EXPECT_EQ(kestrune::nearbyDotsOf(config, 640).reach, 5.0);
  }
}

TEST(MeanSemiAxisNearbyDots, OtherBoardsReachByTheDotsShareOfThePitch) {
  for (const int type : {3, 4}) {
    RingTargetConfig config;
    config.board_type = type;
    config.ratio_solid = 0.3F;
    EXPECT_EQ(kestrune::nearbyDotsOf(config, 640).reach, static_cast<double>(2.0F / 0.3F));
  }
}

TEST(MeanSemiAxisNearbyDots, SpeckLimitIsARealQuotientOfTheWidth) {
  EXPECT_EQ(kestrune::nearbyDotsOf({}, 640).least_semi_a, 2.0);
  EXPECT_EQ(kestrune::nearbyDotsOf({}, 320).least_semi_a, 1.0);
  EXPECT_EQ(kestrune::nearbyDotsOf({}, 2448).least_semi_a, 7.65);
}

TEST(MeanSemiAxisNear, IsTheMeanOfTheMembersInTheSquare) {
  const List dots = {ellipse(10, 0, 4), ellipse(0, -49, 8), ellipse(200, 0, 100)};
  EXPECT_EQ(MeanSemiAxisNear({5.0, 1.0}, dots, ellipse(0, 0, 10)), 6.0);
}

TEST(MeanSemiAxisNear, BordersOfTheSquareAreOutside) {
  const List dots = {ellipse(50, 0, 4), ellipse(0, 50, 4), ellipse(-50, 0, 4), ellipse(0, -50, 4), ellipse(49, -49, 7)};
  EXPECT_EQ(MeanSemiAxisNear({5.0, 1.0}, dots, ellipse(0, 0, 10)), 7.0);
}

TEST(MeanSemiAxisNear, MembersOfTheSpeckLimitDoNotCount) {
  const List dots = {ellipse(1, 0, 2), ellipse(2, 0, 2.5)};
  EXPECT_EQ(MeanSemiAxisNear({5.0, 2.0}, dots, ellipse(0, 0, 10)), 2.5);
}

TEST(MeanSemiAxisNear, WithoutAMemberEveryComparisonFails) {
  const double mean = MeanSemiAxisNear({5.0, 1.0}, {}, ellipse(0, 0, 10));
  EXPECT_TRUE(std::isnan(mean));
  EXPECT_FALSE(10.0 / mean > 2.0);
  EXPECT_FALSE(10.0 / mean <= 2.0);
}

}  // namespace
