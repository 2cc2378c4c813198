#pragma once

#include "polarline/board.h"

namespace boards {

/// Gives each rectangle whose width is 0 the size that suits the kind and the board: large enough that the markers
/// keep apart, small enough that a camera that sees only the middle sees them all.
void completeRectangles(polarline::BoardDescription& board);

}  // namespace boards
