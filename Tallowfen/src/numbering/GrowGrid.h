#pragma once

#include <cstdint>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/numbering/NumberedPoints.h"

namespace kestrune {

/// Numbers the dots outwards from a 3 x 3 seed block, row by row in `seed_indices` (positions in `all`; the first nine
/// count). Every dot is predicted from its neighbours, so a strong curvature of the image does no harm. The ellipse
/// lists of `result` are replaced, its point lists appended to. Without nine different seeds, or on a board without
/// columns, nothing is numbered. Always true.
bool GrowGrid(const RingTargetConfig& config, const std::vector<std::int32_t>& seed_indices,
              const std::vector<Ellipse>& all, NumberedPoints& result);

}  // namespace kestrune
