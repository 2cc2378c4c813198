#pragma once

#include "board/sheet/Sheet.h"
#include "polarline/board.h"

namespace boards {

/// The whole sheet of a board: its dots and markers in the middle, two pitches of white around them, beyond that the
/// ids of the corners, a ruler and the small print. Precondition: the board has passed `checkBoard`. Throws
/// `InputError` for a sheet that is too small and a title that is too long for it.
Sheet drawSheet(const polarline::BoardDescription& board, const polarline::BoardPrint& print);

}  // namespace boards
