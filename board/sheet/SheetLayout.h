#pragma once

#include "board/sheet/PaperSizes.h"
#include "polarline/board.h"

namespace boards {

/// The sizes of everything around the dots, millimetres. A board unit is a millimetre.
struct SheetLayout {
  // The ink of the dots and markers, relative to the first dot's centre.
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;
  double margin_x = 0.0;  ///< White beside the ink: two pitches.
  double margin_y = 0.0;  ///< The same above and below.
  double font = 0.0;      ///< Of all that is printed: smaller than the dots, so that no letter is taken for a ring.
  double head = 0.0;      ///< Strip above the margin: ids.
  double foot = 0.0;      ///< Strip below: ids, ruler, small print.
};

inline constexpr double kRulerLength = 100.0;
inline constexpr double kPaperRim = 5.0;     ///< What printers leave unprinted.
inline constexpr double kLineOfText = 1.5;   ///< Distance of two lines, in fonts.
inline constexpr double kRulerHeight = 4.0;  ///< Of its longest lines.

/// The layout for so many lines of small print.
SheetLayout layOut(const polarline::BoardDescription& board, int lines_of_print);

/// The sheet that the board wants.
Extent wantedExtent(const SheetLayout& layout);

}  // namespace boards
