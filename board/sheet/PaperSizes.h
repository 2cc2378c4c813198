#pragma once

#include <array>
#include <string>

#include "polarline/board.h"

namespace boards {

/// An upright sheet, millimetres (ISO 216).
struct PaperSize {
  polarline::Paper paper;
  const char* name;
  double width;
  double height;
};

/// From the smallest to the largest.
inline constexpr std::array<PaperSize, 4> kPaperSizes = {{{polarline::Paper::kA4, "A4", 210.0, 297.0},
                                                          {polarline::Paper::kA3, "A3", 297.0, 420.0},
                                                          {polarline::Paper::kA2, "A2", 420.0, 594.0},
                                                          {polarline::Paper::kA1, "A1", 594.0, 841.0}}};

/// Width and height of something, millimetres.
struct Extent {
  double width = 0.0;
  double height = 0.0;
};

/// A chosen sheet.
struct ChosenPaper {
  std::string name;
  Extent size;
};

/// The sheet for a board with so many lines of small print, lying if it fits only so, or if it fits both ways and is
/// wider than high. Throws `InputError` with the sizes that were found and wanted, the smallest sheet that would do,
/// and the step.
ChosenPaper choosePaper(const polarline::BoardDescription& board, polarline::Paper paper, int lines_of_print);

}  // namespace boards
