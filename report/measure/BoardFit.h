#pragma once

#include <vector>

#include "report/measure/Board.h"
#include "report/read/DotLists.h"

namespace polarline {

/// The measured board against the true one, brought onto it by the best rigid motion: an entry a dot, board units, not
/// a number for a dot that was not measured or that the board has not.
struct BoardFit {
  std::vector<double> off_x, off_y, off_z;  ///< Measured less true, in the board's frame.
  std::vector<double> depth_error;          ///< Measured less fitted depth, along the left camera's axis.
};

BoardFit fitBoard(const DotLists& dots, const Board& board);

}  // namespace polarline
