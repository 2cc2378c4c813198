#include "board/describe/MarkerRules.h"

#include <gtest/gtest.h>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

struct Refused {
  const char* board;
  const char* words;
};

class MarkerRulesRefused : public testing::TestWithParam<Refused> {};

TEST_P(MarkerRulesRefused, GivesTheReason) {
  expectRefused([] { polarline::parseBoard(GetParam().board); }, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    , MarkerRulesRefused,
    testing::Values(
        Refused{"rings-small:15x15:20:inner=17x7", "column and row (-1, 6), beyond the board's 15 x 15 dots"},
        Refused{"rings-small:17x15:20:inner=9x5", "the marks at (4, 6) and (4, 5) would touch"},
        Refused{"rings-big:21x19:20:outter=13x5", "would touch"}, Refused{"dots:35x37:20:step_y=14", "would touch"},
        Refused{"rings-small:35x37:20:inner=9x13", "the rings can't be told apart"},
        Refused{"rings-mixed:35x37:20:inner=9x7:outter=13x11", "no marker has all its eight neighbours"},
        Refused{"dots:35x37:20:inner=25x21", "mistaken for each other in a slanted view"},
        Refused{"dots:35x37:20:marks=15,20/19,20/19,16/15,16", "can't be told apart: wanted three of them on corners"},
        Refused{"dots:35x37:20:marks=16,16/15,20/19,20/19,16", "wanted (15, 20) (19, 20) (19, 16) (16, 16)"},
        Refused{"dots:35x37:20:marks=15,40/19,40/19,16/16,16", "column and row (15, 40), beyond"},
        Refused{"dots:35x37:20:marks=0,36/34,36/34,0/20,0", "no marker has all its eight neighbours"}));

class MarkerRulesKept : public testing::TestWithParam<const char*> {};

TEST_P(MarkerRulesKept, LetTheBoardPass) { EXPECT_NO_THROW(polarline::parseBoard(GetParam())); }

INSTANTIATE_TEST_SUITE_P(, MarkerRulesKept,
                         testing::Values("rings-small:35x37:20:inner=11x13", "rings-small:35x37:20:inner=31x7",
                                         "rings-mixed:35x37:20:inner=11x7:outter=17x13", "dots:35x37:20:inner=17x13",
                                         "dots:35x37:20:marks=19,20/15,20/15,16/18,16", "dots:5x5:20:inner=3x3",
                                         "dots:35x37:20:marks=0,4/4,4/4,0/1,0"));

}  // namespace
