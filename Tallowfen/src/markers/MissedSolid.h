#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// Where a solid ring that was not recognised as one can stand beside two of the rings, and how large it can be beside
/// the dots.
enum class MissedSolidPlace {
  kSmallQuarterWay,  ///< One to two dots large, a quarter of the way from ring to ring, within 10 pixels.
  kBigBetween,       ///< Two dots large or more, on the line between the rings.
  kBigBeyond         ///< Two dots large or more, on the line through the rings but beyond one of them.
};

/// Moves the dots that stand near the outline of the rings' bounding box and are larger than every ring to `unknowns`.
void takeLargeDotsNearOutline(const std::vector<Ellipse>& rings, std::vector<Ellipse>& dots,
                              std::vector<Ellipse>& unknowns);

/// Looks for solid rings among the unknowns: those that fit any ordered pair of the first four rings are appended to
/// `solids`, all others to `rest`. Their size is compared with that of the dots near the first ring. Precondition: four
/// rings or more.
void findMissedSolids(const NearbyDots& nearby, const std::vector<Ellipse>& dots, const std::vector<Ellipse>& unknowns,
                      const std::vector<Ellipse>& rings, MissedSolidPlace place, std::vector<Ellipse>& solids,
                      std::vector<Ellipse>& rest);

}  // namespace kestrune
