#pragma once

#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/MarkerContext.h"
#include "Tallowfen/src/numbering/Numbering.h"

namespace kestrune {

/// Numbers the seed block of a ring board from its solid ring and its four rings. Sets the ids of the seeds in `all`,
/// to which dots that big markers cover may be appended, and fills `numbering`. False, with a line on the error stream,
/// when the markers don't fit the board.
bool GetCircleIndexRings(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& solids,
                         const std::vector<Ellipse>& rings, std::vector<Ellipse>& all, Numbering& numbering);

/// Numbers the seed block of a board of type 3 from its four big dots. Sets the ids of the seeds in `all` and fills
/// `numbering`. False when the dots have not the shape of the markers or no block of nine is complete.
bool GetCircleIndexBigDots(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& bigs,
                           std::vector<Ellipse>& all, Numbering& numbering);

/// Numbers a board of type 3 without growth: a homography from the four big dots matches dots to the board's grid, a
/// second one from all matches gives the ids. Model units are those of `step`, which should be a whole number. True
/// with nothing added when no more than half of the ellipses match; false when the big dots have not the shape of the
/// markers.
bool GetCircleIndexBySearch(const RingTargetConfig& config, const std::vector<Ellipse>& bigs,
                            const std::vector<Ellipse>& all, Numbering& numbering, NumberedPoints& result);

}  // namespace kestrune
