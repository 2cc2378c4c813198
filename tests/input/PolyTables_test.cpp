#include "input/PolyTables.h"

#include <gtest/gtest.h>

namespace {

struct GridCase {
  std::uint8_t cells_x, cells_y;
  std::size_t most;
  std::size_t usable;
};
class PolyTablesUsableCells : public testing::TestWithParam<GridCase> {};

TEST_P(PolyTablesUsableCells, AreAllOrNone) {
  const auto& [cells_x, cells_y, most, usable] = GetParam();
  EXPECT_EQ(usableCells(cells_x, cells_y, most), usable);
}

INSTANTIATE_TEST_SUITE_P(Grids, PolyTablesUsableCells,
                         testing::Values(GridCase{6, 4, 25, 24}, GridCase{5, 5, 25, 25}, GridCase{13, 2, 25, 0},
                                         GridCase{0, 4, 25, 0}, GridCase{6, 0, 25, 0}, GridCase{255, 255, 25, 0}));

TEST(PolyTables, HaveRoomForFiftyCellsOfTenCoefficients) {
  EXPECT_EQ(PolyTable().size(), 500U);
  EXPECT_EQ(usableCells(10, 5), 50U);
  EXPECT_EQ(usableCells(17, 3), 0U);
}

}  // namespace
