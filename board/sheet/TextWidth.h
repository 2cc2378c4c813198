#pragma once

#include <string_view>

namespace boards {

/// How wide a line of clean UTF-8 is at most in a usual font without serifs, in sizes of the font.
double textWidth(std::string_view text);

}  // namespace boards
