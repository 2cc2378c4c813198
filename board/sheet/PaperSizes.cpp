#include "board/sheet/PaperSizes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "board/sheet/SheetLayout.h"
#include "polarline/errors.h"

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::Paper;

bool holds(const Extent& sheet, const Extent& wanted) {
  return wanted.width <= sheet.width && wanted.height <= sheet.height;
}

/// Upright or lying, as it fits.
std::optional<Extent> placedOn(const PaperSize& paper, const Extent& wanted) {
  const Extent upright{paper.width, paper.height};
  const Extent lying{paper.height, paper.width};
  const bool wide = wanted.width > wanted.height;
  for (const Extent& sheet : wide ? std::array{lying, upright} : std::array{upright, lying}) {
    if (holds(sheet, wanted)) return sheet;
  }
  return std::nullopt;
}

/// The largest step, in hundredths of a board unit, with which the board fits; the rows keep their share of it.
double largestStep(const BoardDescription& board, const PaperSize& paper, int lines_of_print) {
  const auto fits = [&](double hundredths) {
    BoardDescription scaled = board;
    scaled.step = hundredths / 100.0;
    scaled.step_y = board.step_y * scaled.step / board.step;
    return placedOn(paper, wantedExtent(layOut(scaled, lines_of_print))).has_value();
  };
  double low = 0.0;
  double high = std::ceil(board.step * 100.0);
  while (high - low > 1.0) {
    const double middle = std::floor((low + high) / 2.0);
    (fits(middle) ? low : high) = middle;
  }
  return low / 100.0;
}

std::string adviceFor(const BoardDescription& board, const PaperSize& paper, int lines_of_print) {
  const Extent wanted = wantedExtent(layOut(board, lines_of_print));
  const auto* const smallest =
      std::ranges::find_if(kPaperSizes, [&](const PaperSize& each) { return placedOn(each, wanted).has_value(); });
  std::string advice = smallest != kPaperSizes.end()
                           ? fmt::format("{} is the smallest sheet that takes it", smallest->name)
                           : "no sheet up to A1 takes it, only its own size (fit)";
  const double step = largestStep(board, paper, lines_of_print);
  if (step > 0.0) advice += fmt::format("; {} takes a step of up to {}", paper.name, step);
  return advice;
}

/// Whole millimetres, as large as a page of a PDF may be.
ChosenPaper ownSize(const Extent& wanted) {
  constexpr double kLongest = 5080.0;
  const Extent size{std::ceil(wanted.width), std::ceil(wanted.height)};
  if (std::max(size.width, size.height) <= kLongest) return {"own size", size};
  throw polarline::InputError("paper",
                              fmt::format("the board wants {} x {} mm, a board unit being a millimetre; wanted "
                                          "at most {} mm",
                                          size.width, size.height, kLongest));
}

}  // namespace

ChosenPaper choosePaper(const BoardDescription& board, Paper paper, int lines_of_print) {
  const Extent wanted = wantedExtent(layOut(board, lines_of_print));
  if (paper == Paper::kFit) return ownSize(wanted);
  const PaperSize& size = *std::ranges::find(kPaperSizes, paper, &PaperSize::paper);
  if (const auto sheet = placedOn(size, wanted)) return {size.name, *sheet};
  throw polarline::InputError(
      "paper",
      fmt::format("found {}, {} x {} mm; the board wants {:.1f} x {:.1f} mm with its margin and ruler; {}", size.name,
                  size.width, size.height, wanted.width, wanted.height, adviceFor(board, size, lines_of_print)));
}

}  // namespace boards
