#include "diagnose/uncertainty/BoardGrid.h"

#include <gtest/gtest.h>

namespace {

TEST(BoardGrid, FindsDotsByTheirPlaces) {
  const BoardGrid grid({1, 4, 9}, 4);  // Rows of 4: (0, 1), (1, 0), (2, 1).
  EXPECT_EQ(grid.count(), 3U);
  EXPECT_EQ(grid.row(2), 2);
  EXPECT_EQ(grid.column(2), 1);
  EXPECT_EQ(grid.at(0, 1), 0U);
  EXPECT_EQ(grid.at(1, 0), 1U);
  EXPECT_EQ(grid.at(2, 1), 2U);
}

TEST(BoardGrid, HasNothingInHolesAndBesideTheBoard) {
  const BoardGrid grid({0, 3, 5}, 4);
  EXPECT_EQ(grid.at(0, 1), std::nullopt);
  EXPECT_EQ(grid.at(0, 4), std::nullopt);  // Not the first one of the next row.
  EXPECT_EQ(grid.at(1, -1), std::nullopt);
  EXPECT_EQ(grid.at(-1, 0), std::nullopt);
  EXPECT_EQ(grid.at(2, 0), std::nullopt);
  EXPECT_EQ(BoardGrid({}, 4).at(0, 0), std::nullopt);
}

}  // namespace
