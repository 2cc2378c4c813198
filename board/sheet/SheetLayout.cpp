#include "board/sheet/SheetLayout.h"

#include <algorithm>

#include "board/marks/BoardMarks.h"
#include "board/marks/DetectorConfig.h"

namespace boards {
namespace {

using polarline::BoardDescription;

constexpr double kMarginPitches = 2.0;
/// Capitals are about 0.7 fonts high, so a letter is less than half as wide as a dot.
constexpr double kFontPerDotRadius = 1.2;
constexpr double kSmallestFont = 1.0;
constexpr double kLargestFont = 4.0;

void includeInk(const BoardDescription& board, SheetLayout& layout) {
  for (const Mark& mark : marksOf(board)) {
    const double x = mark.place.column * board.step;
    const double y = mark.place.row * rowStep(board);
    const double radius = mark.radii.outer * board.step;
    layout.left = std::min(layout.left, x - radius);
    layout.right = std::max(layout.right, x + radius);
    layout.top = std::min(layout.top, y - radius);
    layout.bottom = std::max(layout.bottom, y + radius);
  }
}

}  // namespace

SheetLayout layOut(const BoardDescription& board, int lines_of_print) {
  SheetLayout layout;
  includeInk(board, layout);
  layout.margin_x = kMarginPitches * board.step;
  layout.margin_y = kMarginPitches * rowStep(board);
  layout.font = std::clamp(kFontPerDotRadius * board.dot_radius * board.step, kSmallestFont, kLargestFont);
  const double line = kLineOfText * layout.font;
  layout.head = kPaperRim + line;
  // The ids, the ruler, its numbers, the small print.
  layout.foot = line + kRulerHeight + line + lines_of_print * line + kPaperRim;
  return layout;
}

Extent wantedExtent(const SheetLayout& layout) {
  constexpr double kRulerNumbers = 10.0;  // What the last number stands out beyond the ruler.
  const double board = layout.right - layout.left + 2.0 * layout.margin_x;
  const double ruler = kRulerLength + 2.0 * (kPaperRim + kRulerNumbers);
  return {std::max(board, ruler),
          layout.head + layout.margin_y + layout.bottom - layout.top + layout.margin_y + layout.foot};
}

}  // namespace boards
