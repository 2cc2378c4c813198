#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

using polarline::BoardDescription;

struct Refused {
  const char* name;
  const char* board;
  void (*spoil)(BoardDescription& board);
  const char* words;
};

class CheckBoardRefused : public testing::TestWithParam<Refused> {};

TEST_P(CheckBoardRefused, SaysWhatWasFoundAndWanted) {
  BoardDescription board = polarline::parseBoard(GetParam().board);
  GetParam().spoil(board);
  expectRefused([&] { polarline::checkBoard(board); }, GetParam().words);
}

constexpr const char* kRings = "rings-small:35x37:20";
constexpr const char* kDots = "dots:35x37:20";

INSTANTIATE_TEST_SUITE_P(
    , CheckBoardRefused,
    testing::Values(
        Refused{"TwoRows", kDots, [](auto& board) { board.rows = 2; },
                "found 35 columns and 2 rows, wanted at least 3"},
        Refused{"TooManyIds", kDots, [](auto& board) { board.rows = board.cols = 257; }, "up to 65536"},
        Refused{"NoStep", kDots, [](auto& board) { board.step = 0.0; }, "found step 0"},
        Refused{"EndlessStep", kDots, [](auto& board) { board.step = std::numeric_limits<double>::infinity(); },
                "found step inf"},
        Refused{"StepThatIsNoNumber", kDots, [](auto& board) { board.step = std::nan(""); }, "found step nan"},
        Refused{"StepBeyondWholeNumbers", "dots:35x37:20:numbering=search",
                [](auto& board) { board.step = board.step_y = 3e9; }, "found step 3000000000, wanted 1e-09 to"},
        Refused{"StepBeyondSinglePrecision", kDots, [](auto& board) { board.step = 1e-60; }, "found step 1e-60"},
        Refused{"RowsBeyondWholeNumbers", "dots:35x37:20:numbering=search", [](auto& board) { board.step_y = 1e37; },
                "found step_y 1e+37"},
        Refused{"RowsBackwards", kDots, [](auto& board) { board.step_y = -1.0; }, "found step_y -1"},
        Refused{"RingRowsOfTheirOwn", kRings, [](auto& board) { board.step_y = 21.0; }, "only big dot boards"},
        Refused{"TinyDots", kRings, [](auto& board) { board.dot_radius = 0.1; }, "found dots of radius 0.1"},
        Refused{"RingsOfTheDotsSize", kRings,
                [](auto& board) {
                  board.small_ring.outer = 0.32;
                  board.small_ring.hollow = 0.2;
                },
                "small rings of radius 0.32"},
        Refused{"SmallRingsTooBig", kRings, [](auto& board) { board.dot_radius = 0.24; }, "a ratio of 2.08"},
        Refused{"BigRingsTooSmall", "rings-big:35x37:20", [](auto& board) { board.big_ring.outer = 0.6; },
                "a ratio of 2.00, wanted 2.15"},
        Refused{"BigSolidTooSmall", "rings-mixed:35x37:20", [](auto& board) { board.big_solid.outer = 0.6; },
                "big solid ring of radius 0.6"},
        Refused{"BigDotsTooSmall", kDots, [](auto& board) { board.big_dot.outer = 0.33; }, "a ratio of 1.10"},
        Refused{"CoreOutsideTheHollow", kRings, [](auto& board) { board.small_solid.core = 0.4; },
                "each wanted smaller than the next"},
        Refused{"LandMarksOnARingBoard", kRings, [](auto& board) { board.land_marks.resize(4); },
                "ring boards have no land marks"},
        Refused{"ThreeLandMarks", kDots, [](auto& board) { board.land_marks.resize(3); },
                "found 3 land marks, wanted 4"},
        Refused{"LandMarkOfTooManyUnits", "dots:35x37:20:numbering=search",
                [](auto& board) {
                  board.step = board.step_y = 3000.0;
                  board.land_marks = {{15, 22}, {19, 22}, {19, 18}, {16, 18}};
                },
                "a land mark at (15, 22) can't be told to the detector"},
        Refused{"SearchByHalves", "dots:35x37:20:numbering=search", [](auto& board) { board.step = 17.5; },
                "found step 17.5 and step_y 20"},
        Refused{"SearchTooNear", "dots:35x37:20:numbering=search", [](auto& board) { board.step = board.step_y = 8.0; },
                "9 and more"},
        Refused{"SearchWithoutRows", "dots:35x37:20:numbering=search", [](auto& board) { board.step_y = 0.0; },
                "step_y written out"}),
    [](const auto& each) { return each.param.name; });

TEST(CheckBoard, TakesTheLargestBoardOfIds) {
  BoardDescription board = polarline::parseBoard(kDots);
  board.rows = board.cols = 256;
  EXPECT_NO_THROW(polarline::checkBoard(board));
}

TEST(CheckBoard, TakesThePitchesAtBothEnds) {
  BoardDescription board = polarline::parseBoard(kDots);
  for (const double step : {1e-9, 1e9}) {
    board.step = board.step_y = step;
    EXPECT_NO_THROW(polarline::checkBoard(board)) << step;
  }
}

}  // namespace
