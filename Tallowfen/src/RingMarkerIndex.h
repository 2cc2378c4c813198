#pragma once

#include <vector>

#include "Tallowfen/src/Numbering.h"
#include "Tallowfen/src/RingTargetConfig.h"

namespace kestrune {

/// Numbers the seed block of a ring board from its solid ring and its four rings. Sets the ids of the seeds in `all`,
/// to which dots that big markers cover may be appended, and fills `numbering`. False, with a line on the error stream,
/// when the markers don't fit the board.
bool GetCircleIndexRings(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& solids,
                         const std::vector<Ellipse>& rings, std::vector<Ellipse>& all, Numbering& numbering);

}  // namespace kestrune
