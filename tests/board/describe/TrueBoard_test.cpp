#include <gtest/gtest.h>

#include <vector>

#include "input/BoardGroundTruthReader.h"
#include "polarline/board.h"
#include "support/TempFolder.h"

namespace {

using polarline::BoardDescription;

BoardDescription smallBoard() { return polarline::parseBoard("dots:7x5:12.5:inner=3x3:step_y=13"); }

TEST(TrueBoard, HoldsEveryPlaceById) {
  const std::vector<polarline::BoardPoint> points = polarline::boardPoints(smallBoard());
  ASSERT_EQ(points.size(), 35U);
  EXPECT_EQ(points[0].x, 0.0);
  EXPECT_EQ(points[0].y, 0.0);
  EXPECT_EQ(points[2 * 7 + 3].x, 37.5);
  EXPECT_EQ(points[2 * 7 + 3].y, 26.0);
  EXPECT_EQ(points[34].x, 75.0);
  EXPECT_EQ(points[34].y, 52.0);
  EXPECT_EQ(points[34].z, 0.0);
}

TEST(TrueBoard, ReadsBackAsBoardPoints) {
  const TempFolder folder;
  BoardGroundTruth read;
  ReadBoardTxt(folder.write("board_gt.txt", polarline::boardGroundTruthText(smallBoard())), read);
  ASSERT_EQ(read.size(), 35U);
  EXPECT_EQ(read[17].x, 37.5F);
  EXPECT_EQ(read[17].y, 26.0F);
  EXPECT_EQ(read[17].z, 0.0F);
}

}  // namespace
