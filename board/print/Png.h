#pragma once

#include <string>

#include "board/sheet/Sheet.h"

namespace boards {

/// The sheet as a grey PNG that bears its dots per inch. `smallest_dot` is the radius in millimetres that must be worth
/// two pixels. Throws `InputError` for too few or too many pixels, `std::runtime_error` if the drawing fails.
std::string pngOf(const Sheet& sheet, double dpi, double smallest_dot);

}  // namespace boards
