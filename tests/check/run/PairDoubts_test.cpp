#include "check/run/PairDoubts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "HandMadeCheck.h"
#include "polarline/board.h"
#include "polarline/detect.h"
#include "support/RenderedSet.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

BoardInfo board(int cols, int rows) {
  BoardInfo info;
  info.cols = cols;
  info.rows = rows;
  return info;
}

/// A board of 17 x 15 dots.
std::array<cv::Mat, 2> pictures() {
  const RenderedSet& set = RenderedSet::of("ring_320");
  return {readPicture(set.file("left_0.png")), readPicture(set.file("right_0.png"))};
}

TEST(PairDoubts, OfABoardOfAnotherSizeAreToldOnce) {
  const TempFolder folder;
  const std::string target = folder.write("target.ini", targetIni(parseBoard("rings-small:17x13:17.5")));
  PairDoubts doubts(board(17, 13), target);
  doubts.look(hand_made::givenUp(hand_made::pair(3, {0.25}, {1.0})), pictures());
  EXPECT_TRUE(doubts.warnings.empty());
  doubts.look(hand_made::pair(4, {0.25}, {1.0}), pictures());
  doubts.look(hand_made::pair(5, {0.25}, {1.0}), pictures());
  ASSERT_EQ(doubts.warnings.size(), 1U);
  EXPECT_EQ(doubts.warnings[0].code, "board_size");
  EXPECT_EQ(doubts.warnings[0].pair, 4);
  PairDoubts frame(board(17, 13), "");
  frame.look(hand_made::pair(0, {0.25}, {1.0}), pictures());
  EXPECT_TRUE(frame.warnings.empty());
}

TEST(PairDoubts, NameTheFiguresThatAreNoNumbers) {
  PairDoubts doubts(board(7, 5), "");
  doubts.look(hand_made::pair(1, {0.25}, {1.0}), {});
  EXPECT_TRUE(doubts.warnings.empty());
  doubts.look(hand_made::pair(2, {std::numeric_limits<double>::quiet_NaN()}, {1.0}), {});
  ASSERT_EQ(doubts.warnings.size(), 1U);
  EXPECT_EQ(doubts.warnings[0].code, "not_a_number");
  EXPECT_EQ(doubts.warnings[0].text, "dy_means of pair 2 can't be computed (nan or inf stands there)");
}

}  // namespace
}  // namespace polarline
