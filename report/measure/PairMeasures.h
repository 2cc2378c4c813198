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

/// How the row differences lie, or what remains of them without the causes.
struct RowMeasures {
  Spread dy;
  std::optional<Course> along, across;  ///< Over the rectified left picture.
};

/// All that the page shows of a pair's dots beyond what the document says of each.
struct PairMeasures {
  std::vector<double> disparity;   ///< An entry a dot; empty without rectified points.
  std::vector<double> dy_pattern;  ///< An entry a dot; empty without causes.
  BoardFit board;
  RowMeasures rows;
  std::optional<RowMeasures> remains;  ///< None where the pattern of the causes is not known.
  Spread residual, depth_error, disparity_spread;
  std::vector<DistanceBin> distances;
  bool worst_by_dy = true;         ///< Otherwise by the residual.
  std::vector<std::size_t> worst;  ///< Dots by place in the lists, the worst first.
};

PairMeasures measure(const DotLists& dots, const Board& board, const CausePattern& pattern);

}  // namespace polarline
