#pragma once

#include <optional>
#include <vector>

#include "report/measure/Board.h"
#include "report/measure/BoardFit.h"
#include "report/measure/CausePattern.h"
#include "report/measure/Course.h"
#include "report/measure/Distances.h"
#include "report/measure/Spread.h"
#include "report/read/DotLists.h"

namespace polarline {

/// All that the page shows of a pair's dots beyond what the document says of each.
struct PairMeasures {
  std::vector<double> disparity;   ///< An entry a dot; empty without rectified points.
  std::vector<double> dy_pattern;  ///< An entry a dot; empty without causes.
  BoardFit board;
  Spread dy, residual, depth_error, disparity_spread;
  std::optional<Course> along, across;  ///< Of the row difference, over the rectified left picture.
  std::vector<DistanceBin> distances;
  bool worst_by_dy = true;         ///< Otherwise by the residual.
  std::vector<std::size_t> worst;  ///< Dots by place in the lists, the worst first.
};

PairMeasures measure(const DotLists& dots, const Board& board, const CausePattern& pattern);

}  // namespace polarline
