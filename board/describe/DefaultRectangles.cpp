#include "board/describe/DefaultRectangles.h"

#include <algorithm>

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardKind;

/// An odd count of at most this many dots that leaves a rim of `rim` dots on either side.
int oddWithin(int dots, int most, int rim) {
  const int room = std::min(most, dots - 2 * rim);
  return room % 2 == 0 ? room - 1 : room;
}

/// Where the hole of a big ring reaches the rim, dots are cut off; a small board has no room to avoid that.
int outerRim(const BoardDescription& board) {
  constexpr int kRoomy = 13;
  if (board.kind == BoardKind::kMixedRings) return 2;
  if (board.kind != BoardKind::kBigRings) return 1;
  return std::min(board.cols, board.rows) < kRoomy ? 2 : 3;
}

}  // namespace

void completeRectangles(BoardDescription& board) {
  if (board.outter_width == 0) {
    board.outter_width = oddWithin(board.cols, 17, outerRim(board));
    board.outter_height = oddWithin(board.rows, 13, outerRim(board));
  }
  if (board.inner_width != 0) return;
  const bool big_dots = board.kind == BoardKind::kBigDots;
  board.inner_width = oddWithin(board.cols, big_dots ? 5 : 9, 1);
  board.inner_height = oddWithin(board.rows, big_dots ? 5 : 7, 1);
  // The numbering begins at the big solid ring, which wants three columns between itself and the small rings.
  if (board.kind == BoardKind::kMixedRings) board.inner_width = std::min(board.inner_width, board.outter_width - 6);
}

}  // namespace boards
