#pragma once

#include <string>

#include "board/sheet/Sheet.h"

namespace boards {

/// The sheet as a PDF of one page: vectors, the font's letters inside. Throws `std::runtime_error` if the drawing
/// fails.
std::string pdfOf(const Sheet& sheet);

}  // namespace boards
