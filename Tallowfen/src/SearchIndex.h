#pragma once

#include <vector>

#include "Tallowfen/src/Numbering.h"
#include "Tallowfen/src/RingTargetConfig.h"

namespace kestrune {

/// Numbers a board of type 3 without growth: a homography from the four big dots matches dots to the board's grid, a
/// second one from all matches gives the ids. Model units are those of `step`, which should be a whole number. True
/// with nothing added when no more than half of the ellipses match; false when the big dots have not the shape of the
/// markers.
bool GetCircleIndexBySearch(const RingTargetConfig& config, const std::vector<Ellipse>& bigs,
                            const std::vector<Ellipse>& all, Numbering& numbering, NumberedPoints& result);

}  // namespace kestrune
