#include "refine/board/SpreadChoice.h"

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(SpreadChoiceOfFew, AreAll) {
  EXPECT_EQ(refine::spreadChoice(4, 10), (std::vector<std::size_t>{0, 1, 2, 3}));
  EXPECT_TRUE(refine::spreadChoice(0, 10).empty());
}

TEST(SpreadChoiceOfMany, IsEvenInRowsAndColumns) {
  constexpr std::size_t kColumns = 20, kRows = 40;
  std::array<int, 4> by_column{}, by_row{};
  const auto chosen = refine::spreadChoice(kColumns * kRows, 40);
  EXPECT_EQ(chosen.size(), 40u);
  for (const std::size_t k : chosen) {
    ++by_column[k % kColumns * 4 / kColumns];
    ++by_row[k / kColumns * 4 / kRows];
  }
  for (std::size_t part = 0; part < 4; ++part) {
    EXPECT_NEAR(by_column[part], 10, 3) << part;
    EXPECT_NEAR(by_row[part], 10, 2) << part;
  }
}

}  // namespace
