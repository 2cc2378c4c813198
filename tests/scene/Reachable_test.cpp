#include "tools/scene/Reachable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using scene::Board;
using scene::BoardKind;
using scene::reachableIds;

bool contains(const std::vector<int>& ids, int id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

TEST(Reachable, BigRingBoardLosesTwentyPoints) {
  Board board;
  board.kind = BoardKind::kBigRings;
  const auto ids = reachableIds(board);
  EXPECT_EQ(ids.reached.size(), 1295U - 20U);
  EXPECT_FALSE(contains(ids.reached, 11 * 37 + 10));  // a ring's centre
  EXPECT_FALSE(contains(ids.reached, 11 * 37 + 11));  // beside it
  EXPECT_TRUE(contains(ids.reached, 14 * 37 + 10));   // the solid ring
  EXPECT_EQ(ids.made_up, (std::vector<int>{13 * 37 + 10, 14 * 37 + 9, 14 * 37 + 11, 15 * 37 + 10}));
}

TEST(Reachable, OtherBoardsAreFoundWhole) {
  for (const BoardKind kind : {BoardKind::kSmallRings, BoardKind::kBigDots, BoardKind::kMixedRings}) {
    Board board;
    board.kind = kind;
    EXPECT_EQ(reachableIds(board).reached.size(), 1295U);
  }
}

}  // namespace
