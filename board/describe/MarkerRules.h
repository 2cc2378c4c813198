#pragma once

#include "polarline/board.h"

namespace boards {

/// Throws `InputError` with the reason if the markers can't be told apart or the numbering can't begin at one of them:
/// they must stand on the board, keep apart, be in the order in which the detector tells them apart, and one of them
/// must have all eight neighbours.
void checkMarkers(const polarline::BoardDescription& board);

}  // namespace boards
