#pragma once

#include <cstddef>
#include <vector>

#include "report/measure/Board.h"
#include "report/read/DotLists.h"

namespace polarline {

/// Errors of the distances between dots, measured less true, whose true distance is from `from` to less than `to`.
struct DistanceBin {
  double from = 0.0, to = 0.0;  ///< Board units.
  std::size_t count = 0;
  double mean = 0.0;
  double sd = 0.0;  ///< Of all; 0 for one distance.
  double min = 0.0, max = 0.0;
};

/// Of all pairs of dots, or of very many dots of every second, third... one with each other. Empty bins are left out.
std::vector<DistanceBin> distanceBins(const DotLists& dots, const Board& board);

}  // namespace polarline
