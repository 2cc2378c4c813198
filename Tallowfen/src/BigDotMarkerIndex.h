#pragma once

#include <vector>

#include "Tallowfen/src/Numbering.h"
#include "Tallowfen/src/RingTargetConfig.h"

namespace kestrune {

/// Numbers the seed block of a board of type 3 from its four big dots. Sets the ids of the seeds in `all` and fills
/// `numbering`. False when the dots have not the shape of the markers or no block of nine is complete.
bool GetCircleIndexBigDots(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& bigs,
                           std::vector<Ellipse>& all, Numbering& numbering);

}  // namespace kestrune
