#include "diagnose/quality/DotFrames.h"

#include <gtest/gtest.h>

namespace diagnose {
namespace {

/// A 3 x 4 grid, 10 pixels across and 6 down, sheared by 2 pixels a row.
std::vector<NumberedDot> grid() {
  std::vector<NumberedDot> dots;
  for (int id = 0; id < 12; ++id) {
    const int row = id / 4;
    const int column = id % 4;
    dots.push_back({id, {10.0 * column + 2.0 * row, 6.0 * row}});
  }
  return dots;
}

TEST(DotFramesOfAGrid, TellHowAStepOfTheBoardLies) {
  const std::vector<DotFrame> frames = dotFrames(grid(), {3, 4, 1.5});
  ASSERT_EQ(frames.size(), 12U);
  for (const DotFrame& frame : frames) {
    EXPECT_NEAR(frame.axes(0, 0), 10.0, 1e-12);
    EXPECT_NEAR(frame.axes(1, 0), 0.0, 1e-12);
    EXPECT_NEAR(frame.axes(0, 1), 2.0 / 1.5, 1e-12);  // Rows are 1.5 column steps apart.
    EXPECT_NEAR(frame.axes(1, 1), 6.0 / 1.5, 1e-12);
  }
}

TEST(DotFramesOfAGrid, TakeTheNextRowForNoNeighbour) {
  std::vector<NumberedDot> dots = grid();
  std::erase_if(dots, [](const NumberedDot& dot) { return dot.id != 3 && dot.id != 4 && dot.id != 7 && dot.id != 8; });
  EXPECT_TRUE(dotFrames(dots, {3, 4, 1.0}).empty());  // 3 and 4 follow each other, at the two ends of rows.
}

TEST(DotFramesOfAGrid, LeaveOutIdsBeyondTheBoard) {
  std::vector<NumberedDot> dots = grid();
  dots.push_back({12, {2.0, 100.0}});
  dots.push_back({-1, {2.0, 100.0}});
  EXPECT_EQ(dotFrames(dots, {3, 4, 1.0}).size(), 12U);
  EXPECT_TRUE(dotFrames({{0, {1.0, 1.0}}}, {3, 4, 1.0}).empty());
}

}  // namespace
}  // namespace diagnose
