#include "board/marks/DetectorConfig.h"

#include <gtest/gtest.h>

#include <cmath>

#include "polarline/board.h"

namespace {

using polarline::parseBoard;

TEST(DetectorConfig, TellsLandMarksInTenthsOfAPitch) {
  const kestrune::RingTargetConfig config =
      boards::detectorConfig(parseBoard("dots:21x19:12.5:marks=3,12/9,12/9,7/4,7"));
  EXPECT_EQ(config.land_mark_switch, 1);
  EXPECT_EQ(config.land_mark1_x, 30);
  EXPECT_EQ(config.land_mark1_y, 120);
  EXPECT_EQ(config.land_mark4_x, 40);
  EXPECT_EQ(config.land_mark4_y, 70);
}

TEST(DetectorConfig, TellsThemInBoardUnitsForTheSearch) {
  const kestrune::RingTargetConfig config =
      boards::detectorConfig(parseBoard("dots:21x19:12:step_y=14:numbering=search:marks=3,12/9,12/9,7/4,7"));
  EXPECT_EQ(config.id_method, 1);
  EXPECT_EQ(config.land_mark2_x, 9 * 12);
  EXPECT_EQ(config.land_mark2_y, 12 * 14);
  EXPECT_EQ(config.land_mark3_x, 9 * 12);
  EXPECT_EQ(config.land_mark3_y, 7 * 14);
}

TEST(DetectorConfig, CutsPitchesToUnitsThatAreWholeNumbers) {
  polarline::BoardDescription board = parseBoard("dots:21x19:12:step_y=14:numbering=search");
  board.step = 12.9;
  board.step_y = 3e9;
  EXPECT_EQ(boards::landMarkUnit(board).x, 12);
  EXPECT_EQ(boards::landMarkUnit(board).y, 2147483647);
  board.step = std::nan("");
  board.step_y = -3.0;
  EXPECT_EQ(boards::landMarkUnit(board).x, 0);
  EXPECT_EQ(boards::landMarkUnit(board).y, 0);
}

TEST(DetectorConfig, HasTheBoardsGeometry) {
  const kestrune::RingTargetConfig config =
      boards::detectorConfig(parseBoard("rings-mixed:23x21:17.5:inner=7x9:outter=15x13:dot=0.32"));
  EXPECT_EQ(config.board_type, 2);
  EXPECT_EQ(config.cols, 23);
  EXPECT_EQ(config.rows, 21);
  EXPECT_EQ(config.inner_width, 7);
  EXPECT_EQ(config.inner_height, 9);
  EXPECT_EQ(config.outter_width, 15);
  EXPECT_EQ(config.outter_height, 13);
  EXPECT_EQ(config.step, 17.5F);
  EXPECT_EQ(config.ratio_solid, 0.32F);
  EXPECT_EQ(config.land_mark_switch, 0);
}

}  // namespace
