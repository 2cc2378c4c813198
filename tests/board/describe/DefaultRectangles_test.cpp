#include "board/describe/DefaultRectangles.h"

#include <gtest/gtest.h>

#include "polarline/board.h"

namespace {

using polarline::BoardDescription;
using polarline::BoardKind;

struct Case {
  BoardKind kind;
  int cols, rows;
  int inner_width, inner_height, outter_width, outter_height;
};

class DefaultRectanglesOf : public testing::TestWithParam<Case> {};

TEST_P(DefaultRectanglesOf, SuitTheBoard) {
  const Case& wanted = GetParam();
  BoardDescription board;
  board.kind = wanted.kind;
  board.cols = wanted.cols;
  board.rows = wanted.rows;
  boards::completeRectangles(board);
  EXPECT_EQ(board.inner_width, wanted.inner_width);
  EXPECT_EQ(board.inner_height, wanted.inner_height);
  EXPECT_EQ(board.outter_width, wanted.outter_width);
  EXPECT_EQ(board.outter_height, wanted.outter_height);
}

INSTANTIATE_TEST_SUITE_P(
    , DefaultRectanglesOf,
    testing::Values(Case{BoardKind::kSmallRings, 35, 37, 9, 7, 17, 13}, Case{BoardKind::kSmallRings, 10, 9, 7, 7, 7, 7},
                    Case{BoardKind::kBigRings, 35, 37, 9, 7, 17, 13}, Case{BoardKind::kBigRings, 19, 17, 9, 7, 13, 11},
                    Case{BoardKind::kBigRings, 13, 12, 9, 7, 9, 7}, Case{BoardKind::kMixedRings, 35, 37, 9, 7, 17, 13},
                    Case{BoardKind::kMixedRings, 17, 15, 7, 7, 13, 11}, Case{BoardKind::kBigDots, 35, 37, 5, 5, 17, 13},
                    Case{BoardKind::kBigDots, 6, 5, 3, 3, 3, 3}));

TEST(DefaultRectangles, LeaveWhatIsThere) {
  BoardDescription board;
  board.cols = board.rows = 35;
  board.inner_width = 11;
  board.inner_height = 9;
  boards::completeRectangles(board);
  EXPECT_EQ(board.inner_width, 11);
  EXPECT_EQ(board.inner_height, 9);
  EXPECT_EQ(board.outter_width, 17);
}

}  // namespace
