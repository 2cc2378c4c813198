#pragma once

#include <string>

#include "board/sheet/Sheet.h"

namespace boards {

/// The sheet as SVG in millimetres: circles, rectangles, texts.
std::string svgOf(const Sheet& sheet);

}  // namespace boards
