#pragma once

#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/numbering/NumberedPoints.h"
#include "Tallowfen/src/numbering/SeedNeighbours.h"

namespace kestrune {

/// Numbers a big dot board without growth: a homography from the four big dots matches dots to the board's grid, a
/// second one from all matches gives the ids. Model units are those of `step`, which should be a whole number. Of
/// `seeds` only the markers are filled. True with nothing added when no more than half of the ellipses match; false
/// when the big dots have not the shape of the markers.
bool GetCircleIndexBySearch(const RingTargetConfig& config, const std::vector<Ellipse>& bigs,
                            const std::vector<Ellipse>& all, MarkerSeeds& seeds, NumberedPoints& result);

}  // namespace kestrune
