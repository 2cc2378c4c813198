#include "report/measure/Board.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

Board boardOf(int rows, int columns, double step, double step_y) {
  Check check = made_document::check();
  check.board = {3, rows, columns, step, step_y, 0};
  return Board(made_document::json(check));
}

TEST(BoardPlace, IsThatOfTheGrid) {
  const Board board = boardOf(3, 4, 10.0, 20.0);
  EXPECT_EQ(board.columnOf(7), 3);
  EXPECT_EQ(board.rowOf(7), 1);
  EXPECT_EQ(*board.placeOf(7), cv::Point3d(30.0, 20.0, 0.0));
  EXPECT_EQ(*boardOf(3, 4, 10.0, 0.0).placeOf(7), cv::Point3d(30.0, 10.0, 0.0)) << "0 means the same pitch";
}

TEST(BoardPlace, IsNoneBeyondTheBoard) {
  const Board board = boardOf(3, 4, 10.0, 10.0);
  EXPECT_TRUE(board.placeOf(11));
  for (const std::int32_t id : {12, -1, 65535, 2147483647}) EXPECT_FALSE(board.placeOf(id)) << id;
  EXPECT_FALSE(boardOf(0, 0, 10.0, 10.0).placeOf(0));
}

TEST(BoardIds, AreTheirLow16Bits) {
  const Board board = boardOf(3, 4, 10.0, 10.0);
  EXPECT_EQ(board.columnOf(0x10007), 3);
  EXPECT_EQ(board.rowOf(0x10007), 1);
  EXPECT_EQ(boardOf(0, 0, 1.0, 1.0).columnOf(5), 5) << "without columns";
  EXPECT_EQ(boardOf(0, 0, 1.0, 1.0).rowOf(5), 0);
}

TEST(BoardMeasured, TakesThePlaceOfTheGridWithOneForEachDot) {
  Board board = boardOf(1, 2, 10.0, 10.0);
  board.take({{1, 2, 3}});
  EXPECT_EQ(*board.placeOf(1), cv::Point3d(10.0, 0.0, 0.0)) << "too few";
  board.take({{1, 2, 3}, {4, 5, 6}});
  EXPECT_EQ(*board.placeOf(1), cv::Point3d(4.0, 5.0, 6.0));
}

TEST(BoardFrame, HasItsPointsByIdsFromOne) {
  Check check = made_document::check();
  check.settings = {{"frame_work", "1"}, {"Frame_3D", "[[60, 0, 1], [180, 40, 2]]"}};
  const Board board(made_document::json(check));
  EXPECT_EQ(*board.placeOf(1), cv::Point3d(60.0, 0.0, 1.0));
  EXPECT_EQ(*board.placeOf(2), cv::Point3d(180.0, 40.0, 2.0));
  EXPECT_FALSE(board.placeOf(0));
  EXPECT_FALSE(board.placeOf(3));
  check.settings[1].json = "[[60, 0]]";
  EXPECT_FALSE(Board(made_document::json(check)).placeOf(1));
}

}  // namespace
}  // namespace polarline
