#include "board/describe/DefaultRectangles.h"

#include <algorithm>

namespace boards {
namespace {

using polarline::BoardKind;

/// An odd count of at most this many dots that leaves a rim of `rim` dots on either side.
int oddWithin(int dots, int most, int rim) {
  const int room = std::min(most, dots - 2 * rim);
  return room % 2 == 0 ? room - 1 : room;
}

}  // namespace

void completeRectangles(polarline::BoardDescription& board) {
  const bool big_dots = board.kind == BoardKind::kBigDots;
  const int rim = board.kind == BoardKind::kSmallRings || big_dots ? 1 : 2;
  if (board.inner_width == 0) {
    board.inner_width = oddWithin(board.cols, big_dots ? 5 : 9, 1);
    board.inner_height = oddWithin(board.rows, big_dots ? 5 : 7, 1);
  }
  if (board.outter_width == 0) {
    board.outter_width = oddWithin(board.cols, 17, rim);
    board.outter_height = oddWithin(board.rows, 13, rim);
  }
}

}  // namespace boards
