#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Gives classes to the ellipses of the Zernike detector, which come without: the first four of the ten largest that
/// make a board's quad become big dots, the round ones of the others dots; the rest goes. Sorts from the largest down.
/// Without a quad no class is given; fewer than four ellipses stay as they are.
void SplitBigDotsMidResolution(std::vector<Ellipse>& ellipses);

}  // namespace kestrune
