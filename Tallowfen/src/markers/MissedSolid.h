#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/MarkerContext.h"

namespace kestrune {

/// Where a solid ring that was not recognised as one can stand against two of the rings, and how large it can be
/// against a dot.
enum class MissedSolidPlace {
  kSmallQuarterWay,  ///< No more than two dots large, a quarter of the way between the rings, within 10 pixels.
  kBigBetween,       ///< Two dots large or more, on the line between the rings.
  kBigBeyond         ///< Two dots large or more, on the line of the rings beyond one of them.
};

/// Moves the dots that stand near the outline of the rings' bounding box and are larger than every ring to `unknowns`.
void takeLargeDotsNearOutline(const std::vector<Ellipse>& rings, std::vector<Ellipse>& dots,
                              std::vector<Ellipse>& unknowns);

/// Looks for solid rings among the unknowns: those that fit any ordered pair of the first four rings are appended to
/// `solids`, all others to `rest`. The size is told against the dots near the first ring. Precondition: at least four
/// rings.
void findMissedSolids(const MarkerContext& context, const std::vector<Ellipse>& dots,
                      const std::vector<Ellipse>& unknowns, const std::vector<Ellipse>& rings, MissedSolidPlace place,
                      std::vector<Ellipse>& solids, std::vector<Ellipse>& rest);

}  // namespace kestrune
