#include <gtest/gtest.h>

#include "polarline/board.h"

namespace {

struct Case {
  const char* board;
  int points;
};

class DetectablePointsOf : public testing::TestWithParam<Case> {};

TEST_P(DetectablePointsOf, LeaveOutWhatTheDetectorDoes) {
  EXPECT_EQ(polarline::detectablePoints(polarline::parseBoard(GetParam().board)), GetParam().points);
}

INSTANTIATE_TEST_SUITE_P(
    , DetectablePointsOf,
    testing::Values(Case{"rings-small:35x37:20", 1295}, Case{"rings-mixed:35x37:20", 1295}, Case{"dots:35x37:20", 1295},
                    // Four rings and the four dots beside each.
                    Case{"rings-big:35x37:20", 1295 - 20},
                    // Begun at a ring; the other three and the solid ring lose five each, one of them shared.
                    Case{"rings-big:17x15:20:outter=11x9", 255 - 19},
                    // Id 0, at which the land marks stand that are off.
                    Case{"dots:35x37:20:numbering=search", 1294},
                    Case{"dots:35x37:20:numbering=search:marks=15,20/19,20/19,16/16,16", 1291}));

}  // namespace
