#pragma once

#include <vector>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/numbering/SeedNeighbours.h"

namespace kestrune {

/// Numbers the seed block of a ring board from its solid ring and its four rings. Sets the ids of the seeds in `all`,
/// to which dots that big markers cover may be appended, and fills `seeds`. False, with a line on standard error, when
/// the markers don't fit the board.
bool GetCircleIndexRings(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& solids,
                         const std::vector<Ellipse>& rings, std::vector<Ellipse>& all, MarkerSeeds& seeds);

/// Numbers the seed block of a big dot board from its four big dots. Sets the ids of the seeds in `all` and fills
/// `seeds`. False when the dots have not the shape of the markers or no block of nine is complete.
bool GetCircleIndexBigDots(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& bigs,
                           std::vector<Ellipse>& all, MarkerSeeds& seeds);

}  // namespace kestrune
