#include "board/describe/SeedBlock.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "board/marks/DetectorConfig.h"

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardPlace;

/// How many points the detector has in each place of the grid.
class PointCounts {
 public:
  explicit PointCounts(const BoardDescription& board) : board_(board) {
    for (const Mark& mark : marksOf(board)) counts_.push_back(mark.drawn ? 1 : 0);
  }

  [[nodiscard]] int at(const BoardPlace& place) const { return isOn(board_, place) ? counts_[idOf(board_, place)] : 0; }
  void add(const BoardPlace& place) {
    if (isOn(board_, place)) ++counts_[idOf(board_, place)];
  }

 private:
  const BoardDescription& board_;
  std::vector<int> counts_;
};

/// The dots right beside a marker are made up if its diagonal neighbours are there.
void makeUpCovered(PointCounts& counts, const BoardPlace& at) {
  for (const int x : {-1, 1}) {
    for (const int y : {-1, 1}) {
      if (counts.at({at.column + x, at.row + y}) != 1) return;
    }
  }
  for (const BoardPlace& place : coveredBy({at, {}, true})) counts.add(place);
}

bool isWholeBlock(const PointCounts& counts, const BoardPlace& middle) {
  for (int row = middle.row - 1; row <= middle.row + 1; ++row) {
    for (int column = middle.column - 1; column <= middle.column + 1; ++column) {
      if (counts.at({column, row}) != 1) return false;
    }
  }
  return true;
}

}  // namespace

std::optional<Marker> seedMarker(const BoardDescription& board) {
  const std::vector<Marker> markers = markersOf(board);
  PointCounts counts(board);
  if (markerSizes(board).solid_big) {
    for (const Marker& marker : markers) makeUpCovered(counts, marker.place);
  }
  const auto seed = std::ranges::find_if(markers, [&](const Marker& each) { return isWholeBlock(counts, each.place); });
  return seed == markers.end() ? std::nullopt : std::optional(*seed);
}

}  // namespace boards
