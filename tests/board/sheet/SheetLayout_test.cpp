#include "board/sheet/SheetLayout.h"

#include <gtest/gtest.h>

#include "polarline/board.h"

namespace {

TEST(SheetLayout, TakesTheInkOfMarkersOnTheRimIntoAccount) {
  // Big dots of 0.45 pitches in the first row and column, plain ones of 0.3 in the last.
  const boards::SheetLayout layout = boards::layOut(polarline::parseBoard("dots:21x19:20:marks=0,4/4,4/4,0/1,0"), 2);
  EXPECT_DOUBLE_EQ(layout.left, -9.0);
  EXPECT_DOUBLE_EQ(layout.top, -9.0);
  EXPECT_DOUBLE_EQ(layout.right, 20 * 20 + 6.0);
  EXPECT_DOUBLE_EQ(layout.bottom, 18 * 20 + 6.0);
  EXPECT_DOUBLE_EQ(boards::wantedExtent(layout).width, 415.0 + 80.0);
}

TEST(SheetLayout, KeepsPrintBetweenOneAndFourMillimetres) {
  EXPECT_EQ(boards::layOut(polarline::parseBoard("dots:21x19:100"), 2).font, 4.0);
  EXPECT_EQ(boards::layOut(polarline::parseBoard("dots:21x19:1"), 2).font, 1.0);
  EXPECT_DOUBLE_EQ(boards::layOut(polarline::parseBoard("dots:21x19:8"), 2).font, 1.2 * 0.3 * 8);
}

}  // namespace
