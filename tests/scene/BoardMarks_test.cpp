#include "tools/scene/BoardMarks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using scene::Board;
using scene::BoardKind;

using Places = std::vector<std::pair<int, int>>;

Board board35x37(BoardKind kind) {
  Board board;
  board.kind = kind;
  return board;
}

Places placesOf(const Board& board) {
  Places places;
  for (const scene::Marker& marker : scene::markersOf(board)) places.emplace_back(marker.column, marker.row);
  return places;
}

TEST(BoardMarks, SmallRingsStandOnTheInnerRectangle) {
  EXPECT_EQ(placesOf(board35x37(BoardKind::kSmallRings)), (Places{{14, 14}, {22, 14}, {22, 20}, {14, 20}, {14, 16}}));
}

TEST(BoardMarks, BigRingsStandOnTheOuterRectangle) {
  EXPECT_EQ(placesOf(board35x37(BoardKind::kBigRings)), (Places{{10, 11}, {26, 11}, {26, 23}, {10, 23}, {10, 14}}));
}

TEST(BoardMarks, MixedBoardHasItsSolidRingOnTheOuterRectangle) {
  EXPECT_EQ(placesOf(board35x37(BoardKind::kMixedRings)), (Places{{14, 14}, {22, 14}, {22, 20}, {14, 20}, {10, 14}}));
}

TEST(BoardMarks, FourthBigDotIsAColumnIn) {
  Board board = board35x37(BoardKind::kBigDots);
  board.inner_width = board.inner_height = 5;
  EXPECT_EQ(placesOf(board), (Places{{16, 19}, {20, 19}, {20, 15}, {17, 15}}));
}

TEST(BoardMarks, BigRingsLeaveTheirFourNeighboursOut) {
  const auto marks = scene::marksOf(board35x37(BoardKind::kBigRings));
  EXPECT_EQ(std::count_if(marks.begin(), marks.end(), [](const auto& mark) { return !mark.drawn; }), 20);
  for (const int id : {11 * 37 + 9, 11 * 37 + 11, 10 * 37 + 10, 12 * 37 + 10})
    EXPECT_FALSE(marks[static_cast<std::size_t>(id)].drawn) << id;
  EXPECT_TRUE(marks[10 * 37 + 9].drawn);  // a diagonal neighbour
}

TEST(BoardMarks, SmallRingsLeaveNothingOut) {
  for (const auto& mark : scene::marksOf(board35x37(BoardKind::kSmallRings))) EXPECT_TRUE(mark.drawn);
}

TEST(BoardMarks, PointsRunAlongTheRows) {
  Board board = board35x37(BoardKind::kBigDots);
  board.step_y = 15.0;
  const auto points = scene::boardPoints(board);
  ASSERT_EQ(points.size(), 1295U);
  EXPECT_EQ(points[38].x, 20.0);
  EXPECT_EQ(points[38].y, 15.0);
  EXPECT_EQ(points[38].z, 0.0);
}

}  // namespace
