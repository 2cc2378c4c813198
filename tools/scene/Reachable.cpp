#include "tools/scene/Reachable.h"

#include <cstdlib>

#include "tools/scene/BoardMarks.h"

namespace scene {
namespace {

int distanceBetween(const Mark& mark, const Marker& marker) {
  return std::abs(mark.column - marker.column) + std::abs(mark.row - marker.row);
}

bool hiddenByRing(const Board& board, const std::vector<Marker>& markers, const Mark& mark) {
  if (board.kind != BoardKind::kBigRings) return false;
  for (std::size_t ring = 0; ring < 4; ++ring) {
    if (distanceBetween(mark, markers[ring]) <= 1) return true;
  }
  return false;
}

}  // namespace

ReachableIds reachableIds(const Board& board) {
  const std::vector<Marker> markers = markersOf(board);
  ReachableIds ids;
  for (const Mark& mark : marksOf(board)) {
    if (hiddenByRing(board, markers, mark)) continue;
    ids.reached.push_back(mark.id);
    if (!mark.drawn) ids.made_up.push_back(mark.id);
  }
  return ids;
}

}  // namespace scene
