#pragma once

#include <vector>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Finds the four big dots of a big dot board among all dots by their size. On success `bigs` holds the four and `dots`
/// all others, both from the largest down. Fails when a list is empty or fewer than four of the eight largest are of
/// one size; the lists stay then.
bool SelectBigDots(std::vector<Ellipse>& dots, std::vector<Ellipse>& bigs, MarkerSizes& sizes);

}  // namespace kestrune
