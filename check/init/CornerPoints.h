#pragma once

#include <array>
#include <functional>

#include "polarline/board.h"

namespace init {

/// Ids of four dots: upper left, upper right, lower left, lower right.
using CornerIds = std::array<int, 4>;

/// Four dots on the corners of the largest rectangle, two places in from the board's corners or more, of which all are
/// seen.
struct CornerPoints {
  CornerIds ids{};
  int columns_in = 0;  ///< From the board's left and right side.
  int rows_in = 0;     ///< From its upper and lower side.
  bool seen = false;   ///< False where no four are; the ids are then those two places in.
};

/// `isSeen` tells of an id whether both pictures of a pair show it.
CornerPoints chooseCorners(const polarline::BoardDescription& board, const std::function<bool(int)>& isSeen);

}  // namespace init
