#include "check/init/CornerPoints.h"

#include <gtest/gtest.h>

namespace {

polarline::BoardDescription board(int cols, int rows) {
  polarline::BoardDescription board;
  board.cols = cols;
  board.rows = rows;
  return board;
}

TEST(CornerPoints, StandTwoPlacesInFromTheCorners) {
  const init::CornerPoints points = init::chooseCorners(board(17, 15), [](int) { return true; });
  // Columns 2 and 14, rows 2 and 12.
  EXPECT_EQ(points.ids, (init::CornerIds{36, 48, 206, 218}));
  EXPECT_EQ(points.columns_in, 2);
  EXPECT_EQ(points.rows_in, 2);
  EXPECT_TRUE(points.seen);
}

TEST(CornerPoints, MoveInwardToTheLargestRectangleThatIsSeen) {
  // Column 2 of 17 is not seen: column 3, then; by symmetry column 13.
  const init::CornerPoints points = init::chooseCorners(board(17, 15), [](int id) { return id % 17 != 2; });
  EXPECT_EQ(points.ids, (init::CornerIds{37, 47, 207, 217}));
  EXPECT_EQ(points.columns_in, 3);
  EXPECT_EQ(points.rows_in, 2);
}

TEST(CornerPoints, WhereNoneIsSeenTheUsualOnesStay) {
  const init::CornerPoints points = init::chooseCorners(board(17, 15), [](int) { return false; });
  EXPECT_EQ(points.ids, (init::CornerIds{36, 48, 206, 218}));
  EXPECT_FALSE(points.seen);
}

TEST(CornerPoints, SmallBoardsHaveThemOnTheirCorners) {
  EXPECT_EQ(init::chooseCorners(board(3, 2), [](int) { return true; }).ids, (init::CornerIds{0, 2, 3, 5}));
  EXPECT_EQ(init::chooseCorners(board(4, 5), [](int) { return true; }).ids, (init::CornerIds{5, 6, 13, 14}));
}

}  // namespace
