#include "board/sheet/PaperSizes.h"

#include <gtest/gtest.h>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

using polarline::Paper;

struct Case {
  const char* board;
  Paper paper;
  const char* name;
  double width, height;
};

class PaperSizesOf : public testing::TestWithParam<Case> {};

TEST_P(PaperSizesOf, LieAsTheBoardFits) {
  const boards::ChosenPaper chosen = boards::choosePaper(polarline::parseBoard(GetParam().board), GetParam().paper, 2);
  EXPECT_EQ(chosen.name, GetParam().name);
  EXPECT_EQ(chosen.size.width, GetParam().width);
  EXPECT_EQ(chosen.size.height, GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(
    , PaperSizesOf,
    testing::Values(Case{"dots:11x9:10", Paper::kA4, "A4", 210, 297},   // 146 x 146 mm: as high as wide, upright.
                    Case{"dots:21x9:10", Paper::kA4, "A4", 297, 210},   // 246 mm wide.
                    Case{"dots:19x11:10", Paper::kA3, "A3", 420, 297},  // Fits both ways, wider than high.
                    Case{"dots:11x19:10", Paper::kA3, "A3", 297, 420},  // The other way round.
                    Case{"rings-small:25x23:14", Paper::kA2, "A2", 420, 594},  // 400.4 mm wide, 409 high.
                    Case{"rings-big:39x25:19", Paper::kA1, "A1", 841, 594},
                    // 63 mm of ink and margin; the ruler with its numbers is wider. Print of 1.8 mm on lines of
                    // 2.7: 7.7 above, 2.7 + 4 + 3 x 2.7 + 5 below.
                    Case{"dots:9x9:5", Paper::kFit, "own size", 130, 91}));

TEST(PaperSizes, RefuseWithTheSizesAndTheSmallestSheetThatDoes) {
  // 16 x 14 steps between the centres, 0.6 of ink and 4 of margin: 309 mm wide.
  const auto board = polarline::parseBoard("rings-small:17x15:15");
  expectRefused([&] { boards::choosePaper(board, Paper::kA4, 2); }, "found A4, 210 x 297 mm; the board wants 309.0 x ");
  expectRefused([&] { boards::choosePaper(board, Paper::kA4, 2); }, "A2 is the smallest sheet that takes it");
}

TEST(PaperSizes, AreNoLargerThanAPage) {
  expectRefused([] { boards::choosePaper(polarline::parseBoard("dots:35x37:200"), Paper::kFit, 2); },
                "wanted at most 5080 mm");
}

TEST(PaperSizes, TellTheStepThatFits) {
  const auto board = polarline::parseBoard("rings-small:35x37:20");
  expectRefused([&] { boards::choosePaper(board, Paper::kA1, 2); }, "no sheet up to A1 takes it");
  // 34 steps between the centres, 0.6 of ink and 4 of margin: 38.6 steps of 15.38 mm are 593.67 of the 594 mm.
  expectRefused([&] { boards::choosePaper(board, Paper::kA1, 2); }, "A1 takes a step of up to 15.38");
  EXPECT_NO_THROW(boards::choosePaper(polarline::parseBoard("rings-small:35x37:15.38"), Paper::kA1, 2));
  EXPECT_THROW(boards::choosePaper(polarline::parseBoard("rings-small:35x37:15.39"), Paper::kA1, 2),
               polarline::InputError);
}

}  // namespace
