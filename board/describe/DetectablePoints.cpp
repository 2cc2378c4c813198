#include <set>
#include <utility>

#include "board/marks/BoardMarks.h"
#include "board/marks/DetectorConfig.h"
#include "polarline/board.h"

namespace polarline {
namespace {

/// Growth does not come to the middle of a big ring, nor to the dots that it covers: what is made up there has no
/// outline. The solid ring is the seed.
int withoutBigRings(const BoardDescription& board) {
  constexpr int kLostOfRing = 5;
  return board.rows * board.cols - static_cast<int>(kestrune::kRingCount) * kLostOfRing;
}

/// The search never reports a place that equals a land mark; marks that are off are all at (0, 0).
int withoutLandMarks(const BoardDescription& board) {
  std::set<std::pair<int, int>> places;
  for (const BoardPlace& mark : board.land_marks) places.emplace(mark.column, mark.row);
  if (places.empty()) places.emplace(0, 0);
  return board.rows * board.cols - static_cast<int>(places.size());
}

}  // namespace

int detectablePoints(const BoardDescription& board) {
  if (board.kind == BoardKind::kBigRings) return withoutBigRings(board);
  if (board.numbering == BoardNumbering::kSearch) return withoutLandMarks(board);
  return board.rows * board.cols;
}

}  // namespace polarline
