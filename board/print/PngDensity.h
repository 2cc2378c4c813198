#pragma once

#include <string>

namespace boards {

/// Puts the density into a PNG, as the pixels to the metre of a pHYs chunk. Precondition: a PNG without one.
void enterDensity(std::string& png, double dpi);

}  // namespace boards
