#include <set>
#include <utility>

#include "board/describe/SeedBlock.h"
#include "board/marks/BoardMarks.h"
#include "polarline/board.h"

namespace polarline {
namespace {

using Places = std::set<std::pair<int, int>>;

Places taken(const boards::Marker& marker) {
  Places places{{marker.place.column, marker.place.row}};
  for (const BoardPlace& place : boards::coveredBy(marker)) places.emplace(place.column, place.row);
  return places;
}

/// Growth does not come to the middle of a big ring, nor to the dots that it covers: what is made up there has no
/// outline. Only the marker where it begins is numbered whole.
int withoutBigRings(const BoardDescription& board) {
  Places lost;
  for (const boards::Marker& marker : boards::markersOf(board)) lost.merge(taken(marker));
  if (const auto seed = boards::seedMarker(board)) {
    for (const auto& place : taken(*seed)) lost.erase(place);
  }
  return board.rows * board.cols - static_cast<int>(lost.size());
}

/// The search never reports a place that equals a land mark; marks that are off are all at (0, 0).
int withoutLandMarks(const BoardDescription& board) {
  Places places;
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
