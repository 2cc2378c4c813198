#include "Tallowfen/src/numbering/CellMap.h"

#include <gmock/gmock.h>

#include <limits>

namespace {

using kestrune::CellMap;
using testing::ElementsAre;

TEST(CellMap, CellsAreTenUnitsWideFromTheirUpperLeftCorner) {
  const CellMap cells(37, {});
  EXPECT_EQ(cells.cellOf(0, 0), 0);
  EXPECT_EQ(cells.cellOf(15, 0), 1);
  EXPECT_EQ(cells.cellOf(20, 35), 3 * 37 + 2);
}

TEST(CellMap, DivisionCutsTowardZero) {
  const CellMap cells(37, {});
  EXPECT_EQ(cells.cellOf(-5, 0), 0) << "half a step left of the board is still the first column";
  EXPECT_EQ(cells.cellOf(-10, 10), 36) << "a step left of the second row is the first one's last column";
  EXPECT_EQ(cells.cellOf(0, -15), -37);
}

TEST(CellMap, EndsOfTheIntegersHaveCellsOfTheirOwn) {
  const CellMap cells(65535, {});
  const int low = std::numeric_limits<int>::min();
  EXPECT_EQ(cells.cellOf(low, low), -214748364LL * 65535 - 214748364);
}

TEST(CellMap, KeepsTheOrderOfTheListWithinACell) {
  CellMap cells(5, {{10, 10}, {0, 0}, {15, 15}, {10, 15}});
  EXPECT_EQ(cells.count(6), 3U);
  EXPECT_EQ(cells.first(6), 0U);
  EXPECT_THAT(cells.allOf(6), ElementsAre(0, 2, 3));
  EXPECT_EQ(cells.count(7), 0U);
  cells.add(6, 9);
  EXPECT_THAT(cells.allOf(6), ElementsAre(0, 2, 3, 9));
  cells.keepOnly(6, 3);
  EXPECT_THAT(cells.allOf(6), ElementsAre(3));
}

}  // namespace
