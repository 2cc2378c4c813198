#include "board/describe/SeedBlock.h"

#include <gtest/gtest.h>

#include "polarline/board.h"

namespace {

using polarline::BoardDescription;
using polarline::parseBoard;

TEST(SeedBlock, IsTheSolidRingsFirst) {
  // Middle (17, 18); W2 = 8, H2 = 6: the solid ring at (9, 15).
  const auto seed = boards::seedMarker(parseBoard("rings-big:35x37:20"));
  ASSERT_TRUE(seed);
  EXPECT_EQ(seed->place.column, 9);
  EXPECT_EQ(seed->place.row, 15);
}

TEST(SeedBlock, IsAnotherRingsWhereTwoBigOnesShareACoveredDot) {
  // Middle (8, 7); outer rectangle 11 x 9: solid ring at (3, 5), upper left one at (3, 3), both beside (3, 4).
  const auto seed = boards::seedMarker(parseBoard("rings-big:17x15:20:outter=11x9"));
  ASSERT_TRUE(seed);
  EXPECT_EQ(seed->place.column, 13);
  EXPECT_EQ(seed->place.row, 3);
}

TEST(SeedBlock, IsMissingBesideADoubledDot) {
  // The small ring (4, 4) two columns from the solid ring (2, 5): what is made up beside the small one stands twice.
  BoardDescription board = parseBoard("rings-mixed:17x15:20");
  board.inner_width = 9;
  EXPECT_FALSE(boards::seedMarker(board));
}

TEST(SeedBlock, IsMissingOnTheRim) {
  BoardDescription board = parseBoard("dots:15x15:20");
  board.land_marks = {{0, 14}, {14, 14}, {14, 0}, {7, 0}};
  EXPECT_FALSE(boards::seedMarker(board));
}

}  // namespace
