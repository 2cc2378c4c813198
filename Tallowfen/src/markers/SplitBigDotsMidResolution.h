#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Gives classes to the ellipses of the Zernike detector, which come without. The first four of the ten largest that
/// can be a board's big dots become big dots, the round ones of the others dots; the rest is dropped. Sorts from the
/// largest down. Without such four no class is given; fewer than four ellipses stay as they are.
void SplitBigDotsMidResolution(std::vector<Ellipse>& ellipses);

}  // namespace kestrune
