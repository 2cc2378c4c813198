#include "board/marks/BoardMarks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "polarline/board.h"
#include "tools/scene/BoardMarks.h"

namespace {

using polarline::BoardDescription;

struct Case {
  const char* board;
  scene::BoardKind kind;
};

/// The renderer's board, whose marks are placed by code of its own.
scene::Board sceneBoard(const BoardDescription& board, scene::BoardKind kind) {
  scene::Board same;
  same.kind = kind;
  same.rows = board.rows;
  same.cols = board.cols;
  same.step = board.step;
  same.step_y = board.step_y;
  same.inner_width = board.inner_width;
  same.inner_height = board.inner_height;
  same.outter_width = board.outter_width;
  same.outter_height = board.outter_height;
  return same;
}

class BoardMarksOfAKind : public testing::TestWithParam<Case> {};

TEST_P(BoardMarksOfAKind, AreThoseOfTheRenderer) {
  const BoardDescription board = polarline::parseBoard(GetParam().board);
  const std::vector<boards::Mark> marks = boards::marksOf(board);
  const std::vector<scene::Mark> wanted = scene::marksOf(sceneBoard(board, GetParam().kind));
  ASSERT_EQ(marks.size(), wanted.size());
  for (std::size_t id = 0; id < marks.size(); ++id) {
    EXPECT_EQ(marks[id].place.column, wanted[id].column) << id;
    EXPECT_EQ(marks[id].place.row, wanted[id].row) << id;
    EXPECT_EQ(marks[id].drawn, wanted[id].drawn) << id;
    EXPECT_EQ(marks[id].radii.outer, wanted[id].radii.outer) << id;
    EXPECT_EQ(marks[id].radii.hollow, wanted[id].radii.hollow) << id;
    EXPECT_EQ(marks[id].radii.core, wanted[id].radii.core) << id;
  }
}

INSTANTIATE_TEST_SUITE_P(, BoardMarksOfAKind,
                         testing::Values(Case{"rings-small:35x37:20", scene::BoardKind::kSmallRings},
                                         Case{"rings-small:16x14:20", scene::BoardKind::kSmallRings},
                                         Case{"rings-big:35x37:20", scene::BoardKind::kBigRings},
                                         Case{"rings-big:21x18:20:outter=14x10", scene::BoardKind::kBigRings},
                                         Case{"rings-mixed:35x37:20", scene::BoardKind::kMixedRings},
                                         Case{"rings-mixed:24x22:20", scene::BoardKind::kMixedRings},
                                         Case{"dots:35x37:20", scene::BoardKind::kBigDots},
                                         Case{"dots:26x16:20:inner=4x6:step_y=24", scene::BoardKind::kBigDots}));

TEST(BoardMarks, StandAtTheLandMarks) {
  const BoardDescription board = polarline::parseBoard("dots:21x19:20:marks=3,12/9,12/9,7/4,7");
  const std::vector<boards::Mark> marks = boards::marksOf(board);
  for (std::size_t id = 0; id < marks.size(); ++id) {
    const bool big = id == 12 * 21 + 3 || id == 12 * 21 + 9 || id == 7 * 21 + 9 || id == 7 * 21 + 4;
    EXPECT_EQ(marks[id].radii.outer, big ? 0.45 : 0.3) << id;
    EXPECT_TRUE(marks[id].drawn);
  }
}

TEST(BoardMarks, KeepAMarkerThatStandsRightBesideABigOne) {
  BoardDescription board = polarline::parseBoard("rings-big:21x19:20");
  board.outter_height = 5;  // The solid ring one row below the upper left one: no board to print, but a marker stays.
  const boards::Marker solid = boards::markersOf(board).front();
  EXPECT_TRUE(boards::marksOf(board)[static_cast<std::size_t>(solid.place.row * 21 + solid.place.column)].drawn);
}

}  // namespace
