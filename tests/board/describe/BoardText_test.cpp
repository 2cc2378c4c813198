#include <gtest/gtest.h>

#include <string>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

using polarline::BoardDescription;
using polarline::BoardKind;
using polarline::boardText;
using polarline::parseBoard;

TEST(BoardText, ReadsKindCountsAndStep) {
  const BoardDescription board = parseBoard("rings-big:37x35:17.5");
  EXPECT_EQ(board.kind, BoardKind::kBigRings);
  EXPECT_EQ(board.cols, 37);
  EXPECT_EQ(board.rows, 35);
  EXPECT_EQ(board.step, 17.5);
  EXPECT_EQ(board.step_y, 0.0);
}

TEST(BoardText, ReadsTheOptions) {
  const BoardDescription board =
      parseBoard("dots:26x18:20:inner=4x6:outter=11x9:step_y=24:dot=0.25:numbering=search:marks=5,10/12,10/12,5/6,5");
  EXPECT_EQ(board.kind, BoardKind::kBigDots);
  EXPECT_EQ(board.inner_width, 4);
  EXPECT_EQ(board.inner_height, 6);
  EXPECT_EQ(board.outter_width, 11);
  EXPECT_EQ(board.outter_height, 9);
  EXPECT_EQ(board.step_y, 24.0);
  EXPECT_EQ(board.dot_radius, 0.25);
  EXPECT_EQ(board.numbering, polarline::BoardNumbering::kSearch);
  ASSERT_EQ(board.land_marks.size(), 4U);
  EXPECT_EQ(board.land_marks[3].column, 6);
  EXPECT_EQ(board.land_marks[3].row, 5);
}

TEST(BoardText, WritesThePitchOfTheRowsOutForTheSearch) {
  EXPECT_EQ(parseBoard("dots:15x15:20:numbering=search").step_y, 20.0);
}

class BoardTextRead : public testing::TestWithParam<const char*> {};

TEST_P(BoardTextRead, ReadsAsItIsWritten) { EXPECT_EQ(boardText(parseBoard(GetParam())), GetParam()); }

INSTANTIATE_TEST_SUITE_P(, BoardTextRead,
                         testing::Values("rings-small:35x37:17.5:inner=9x7:outter=17x13",
                                         "rings-big:35x37:20:inner=9x7:outter=17x13:dot=0.28",
                                         "rings-mixed:35x37:20:inner=9x7:outter=17x13",
                                         "dots:35x37:20:inner=5x5:outter=17x13:step_y=24:numbering=search",
                                         "dots:35x37:0.125:inner=5x5:outter=17x13:marks=5,20/12,20/12,14/6,14"));

struct Refused {
  const char* board;
  const char* words;
};

class BoardTextRefused : public testing::TestWithParam<Refused> {};

TEST_P(BoardTextRefused, SaysWhatWasFoundAndWanted) {
  expectRefused([] { parseBoard(GetParam().board); }, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    , BoardTextRefused,
    testing::Values(Refused{"", "board '': found '', wanted KIND:COLSxROWS:STEP"},
                    Refused{"dots:15x15", "wanted KIND:COLSxROWS:STEP"},
                    Refused{"rings:15x15:20", "found 'rings', wanted one of rings-small"},
                    Refused{"dots:15:20", "found '15', wanted COLSxROWS"},
                    Refused{"dots:15x15x15:20", "wanted COLSxROWS"}, Refused{"dots:15x-15:20", "wanted COLSxROWS"},
                    Refused{"dots:15x70000:20", "wanted COLSxROWS"}, Refused{"dots:15x15a:20", "wanted COLSxROWS"},
                    Refused{"dots:15x15:0", "found '0', wanted a step"}, Refused{"dots:15x15:20mm", "found '20mm'"},
                    Refused{"dots:15x15:nan", "found 'nan'"}, Refused{"dots:15x15:inf", "found 'inf'"},
                    Refused{"dots:15x15:", "found ''"},
                    Refused{"dots:15x15:20:inner", "found 'inner', wanted NAME=VALUE"},
                    Refused{"dots:15x15:20:inner=5", "found '5', wanted inner=WIDTHxHEIGHT"},
                    Refused{"dots:15x15:20:outer=5x5", "found 'outer', wanted one of inner, outter"},
                    Refused{"dots:15x15:20:step_y=-2", "found '-2', wanted a step_y"},
                    Refused{"dots:15x15:20:numbering=both", "found 'both'"},
                    Refused{"dots:15x15:20:marks=1,2/3", "found '3', wanted marks="}));

}  // namespace
