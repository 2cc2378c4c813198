#include "Tallowfen/src/board/MarkerLayout.h"

#include <gmock/gmock.h>

#include "BoardView.h"

namespace {

using kestrune::BigDotLayout;
using kestrune::MarkerLayout;
using kestrune::MarkerSizes;
using testing::ElementsAre;
using Point = cv::Point2f;

TEST(MarkerLayout, SmallRings) {
  EXPECT_THAT(MarkerLayout(exampleBoard(), {true, false, false}, 10.0F),
              ElementsAre(Point(140, 160), Point(140, 140), Point(220, 140), Point(220, 200), Point(140, 200)));
}

TEST(MarkerLayout, BigRings) {
  EXPECT_THAT(MarkerLayout(exampleBoard(), {false, true, false}, 1.0F),
              ElementsAre(Point(10, 14), Point(10, 11), Point(26, 11), Point(26, 23), Point(10, 23)));
}

TEST(MarkerLayout, SmallRingsWithABigSolidRing) {
  EXPECT_THAT(MarkerLayout(exampleBoard(), {true, true, false}, 1.0F),
              ElementsAre(Point(10, 14), Point(14, 14), Point(22, 14), Point(22, 20), Point(14, 20)));
}

TEST(MarkerLayout, DefaultBoard) {
  // 71 x 73 with 17 x 13: the middle is (36, 35), half the rectangle 8 x 6.
  EXPECT_THAT(MarkerLayout({}, {true, false, false}, 1.0F),
              ElementsAre(Point(28, 32), Point(28, 29), Point(44, 29), Point(44, 41), Point(28, 41)));
}

TEST(MarkerLayout, EvenSizesCutTheirHalves) {
  kestrune::RingTargetConfig config = exampleBoard();
  config.rows = 36;          // 37 / 2 - 1 = 17
  config.cols = 38;          // 39 / 2 - 1 = 18
  config.inner_width = 10;   // 9 / 2 = 4
  config.inner_height = 12;  // 11 / 2 = 5, and 5 / 2 = 2
  EXPECT_THAT(MarkerLayout(config, {true, false, false}, 1.0F),
              ElementsAre(Point(14, 15), Point(14, 12), Point(22, 12), Point(22, 22), Point(14, 22)));
}

TEST(MarkerLayout, SolidRingOfTheMixedBoardCutsTheQuarterAtOnce) {
  kestrune::RingTargetConfig config = exampleBoard();
  config.outter_height = 16;  // 15 / 4 = 3
  EXPECT_EQ(MarkerLayout(config, {true, true, false}, 1.0F)[0], Point(10, 14));
}

TEST(MarkerLayoutBigDots, LastDotStandsOneColumnIn) {
  EXPECT_THAT(BigDotLayout(exampleBigDotBoard(), 1, 1),
              ElementsAre(Point(16, 19), Point(20, 19), Point(20, 15), Point(17, 15)));
}

TEST(MarkerLayoutBigDots, ScalesColumnsAndRowsApart) {
  EXPECT_THAT(BigDotLayout(exampleBigDotBoard(), 20, 15),
              ElementsAre(Point(320, 285), Point(400, 285), Point(400, 225), Point(340, 225)));
}

TEST(MarkerLayoutBigDots, RectangleWiderThanTheBoardGoesNegative) {
  kestrune::RingTargetConfig config = exampleBigDotBoard();
  config.inner_width = 42;  // (37 - 42) / 2 = -2, (37 + 42) / 2 - 1 = 38
  EXPECT_THAT(BigDotLayout(config, 10, 10),
              ElementsAre(Point(-20, 190), Point(380, 190), Point(380, 150), Point(-10, 150)));
}

TEST(MarkerLayoutBigDots, LandMarksAreTakenAsTheyStand) {
  kestrune::RingTargetConfig config = exampleBigDotBoard();
  config.land_mark1_x = 1, config.land_mark1_y = 2, config.land_mark2_x = 3, config.land_mark2_y = 4;
  config.land_mark3_x = 5, config.land_mark3_y = 6, config.land_mark4_x = 65535, config.land_mark4_y = 8;
  config.land_mark_switch = 1;
  EXPECT_THAT(BigDotLayout(config, 10, 10), ElementsAre(Point(1, 2), Point(3, 4), Point(5, 6), Point(65535, 8)));
  config.land_mark_switch = 2;
  EXPECT_EQ(BigDotLayout(config, 10, 10)[0], Point(160, 190));
}

}  // namespace
