#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// Ring-like ellipses apart by their size against the dots around them.
struct RingSizes {
  std::vector<Ellipse> big_rings;    ///< More than twice a dot.
  std::vector<Ellipse> small_rings;  ///< Between one and two dots.
  std::vector<Ellipse> big_solids;   ///< Solid rings likewise.
  std::vector<Ellipse> small_solids;
};

/// Compares every ring and then every solid ring with the dots. One that is of neither size (ratio 2 exactly, 1 and
/// below, or no dots near) joins the dots at once and counts as one for those behind it.
RingSizes sortRingsBySize(const NearbyDots& nearby, EllipsesByClass& lists);

}  // namespace kestrune
