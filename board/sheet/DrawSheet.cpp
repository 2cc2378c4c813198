#include "board/sheet/DrawSheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "board/marks/BoardMarks.h"
#include "board/marks/DetectorConfig.h"
#include "board/sheet/PaperSizes.h"
#include "board/sheet/PrintableText.h"
#include "board/sheet/SheetLayout.h"
#include "board/sheet/TextWidth.h"
#include "polarline/errors.h"

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardPlace;

/// A sheet on which the pen goes down from strip to strip.
class SheetPen {
 public:
  SheetPen(const BoardDescription& board, const SheetLayout& layout, const ChosenPaper& paper)
      : board_(board), layout_(layout) {
    sheet_.paper = paper.name;
    sheet_.width = paper.size.width;
    sheet_.height = paper.size.height;
    const Extent wanted = wantedExtent(layout);
    const double top = (sheet_.height - wanted.height) / 2.0;
    first_x_ = (sheet_.width - layout.left - layout.right) / 2.0;
    first_y_ = top + layout.head + layout.margin_y - layout.top;
  }

  void drawMarks() {
    for (const Mark& mark : marksOf(board_)) {
      if (!mark.drawn) continue;
      addDisc(mark.place, mark.radii.outer, true);
      addDisc(mark.place, mark.radii.hollow, false);
      addDisc(mark.place, mark.radii.core, true);
    }
  }

  void drawCornerIds() {
    const int right = board_.cols - 1;
    const int bottom = board_.rows - 1;
    const double above = first_y_ + layout_.top - layout_.margin_y - kDescent * layout_.font;
    below_ = first_y_ + layout_.bottom + layout_.margin_y + layout_.font;
    for (const BoardPlace& place : std::array<BoardPlace, 4>{{{0, 0}, {right, 0}, {0, bottom}, {right, bottom}}}) {
      addCaption(xOf(place.column), place.row == 0 ? above : below_,
                 std::to_string(place.row * board_.cols + place.column));
    }
  }

  void drawRuler() {
    const double start = (sheet_.width - kRulerLength) / 2.0;
    const double top = below_ + (kLineOfText - 1.0) * layout_.font;
    const double base = top + kRulerHeight;
    sheet_.bars.push_back({start, base - kLineWidth / 2.0, kRulerLength, kLineWidth});
    for (int unit = 0; unit <= static_cast<int>(kRulerLength); unit += 10) {
      const bool named = unit % 50 == 0;
      const double height = named ? kRulerHeight : kRulerHeight / 2.0;
      sheet_.bars.push_back({start + unit - kLineWidth / 2.0, base - height, kLineWidth, height + kLineWidth / 2.0});
      if (named) addCaption(start + unit, base + layout_.font, std::to_string(unit));
    }
    below_ = base + layout_.font;
  }

  void drawPrint(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
      below_ += kLineOfText * layout_.font;
      sheet_.captions.push_back({sheet_.width / 2.0, below_, fontFor(line), line});
    }
  }

  Sheet finished(const std::string& title) {
    for (const Caption& caption : sheet_.captions) addRails(caption);
    sheet_.title = title;
    return std::move(sheet_);
  }

 private:
  static constexpr double kLineWidth = 0.25;
  static constexpr double kDescent = 0.25;  ///< What letters reach below their line, in fonts.

  [[nodiscard]] double xOf(int column) const { return first_x_ + column * board_.step; }

  void addDisc(const BoardPlace& place, double radius, bool ink) {
    if (radius <= 0.0) return;
    sheet_.discs.push_back({xOf(place.column), first_y_ + place.row * rowStep(board_), radius * board_.step, ink});
  }

  void addCaption(double x, double y, const std::string& text) {
    sheet_.captions.push_back({x, y, layout_.font, text});
  }

  /// Joins the letters at their feet and at the height of capitals. A round letter that stands for itself is a ring to
  /// the detector, and with a full stop beside it one of the right size.
  void addRails(const Caption& caption) {
    constexpr double kThickness = 0.1;
    constexpr double kFeet = 0.06;
    constexpr double kCapitals = 0.76;
    constexpr double kOverhang = 0.3;
    const double width = (textWidth(caption.text) + 2.0 * kOverhang) * caption.size;
    for (const double above : {kFeet, kCapitals}) {
      sheet_.bars.push_back(
          {caption.x - width / 2.0, caption.y - above * caption.size, width, kThickness * caption.size});
    }
  }

  /// The font with which a line stays on the sheet, down to one that can still be read.
  [[nodiscard]] double fontFor(const std::string& line) const {
    constexpr double kSmallest = 0.8;
    const double room = sheet_.width - 2.0 * kPaperRim;
    const double font = std::min(layout_.font, room / (textWidth(line) + 1.0));
    if (font >= kSmallest) return font;
    throw polarline::InputError("title",
                                fmt::format("found a line of {:.0f} mm in the smallest print, wanted at most {} mm",
                                            textWidth(line) * kSmallest, room));
  }

  const BoardDescription& board_;
  const SheetLayout& layout_;
  Sheet sheet_;
  double first_x_ = 0.0;  ///< Of the first dot.
  double first_y_ = 0.0;
  double below_ = 0.0;  ///< Where the last line of text stands.
};

std::vector<std::string> smallPrint(const BoardDescription& board, const std::string& title) {
  const std::string words = fmt::format("{}, {} x {} mm between the outermost centres", boardText(board),
                                        (board.cols - 1) * board.step, (board.rows - 1) * rowStep(board));
  const std::string version = fmt::format("polarline {}, true size: 100 on the ruler are 100 mm", PLP_VERSION);
  return title.empty() ? std::vector{words, version} : std::vector{title, words, version};
}

void requirePrintable(const BoardDescription& board) {
  constexpr double kSmallestDot = 0.3;
  const double dot = 2.0 * board.dot_radius * board.step;
  if (dot >= kSmallestDot) return;
  throw polarline::InputError("board",
                              fmt::format("found dots of {:.3g} mm at a step of {}, wanted at least {} mm; a board "
                                          "unit is printed as a millimetre",
                                          dot, board.step, kSmallestDot));
}

}  // namespace

Sheet drawSheet(const BoardDescription& board, const polarline::BoardPrint& print) {
  requirePrintable(board);
  const std::string title = printable(print.title);
  const std::vector<std::string> lines = smallPrint(board, title);
  const int line_count = static_cast<int>(lines.size());
  const SheetLayout layout = layOut(board, line_count);
  SheetPen pen(board, layout, choosePaper(board, print.paper, line_count));
  pen.drawMarks();
  pen.drawCornerIds();
  pen.drawRuler();
  pen.drawPrint(lines);
  return pen.finished(title.empty() ? "Board " + boardText(board) : title);
}

}  // namespace boards
