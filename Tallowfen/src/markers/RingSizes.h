#pragma once

#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// Semi-axes of the markers over those of the dots near them: small ones between these two, big ones above the second.
inline constexpr double kSmallMarkerSize = 1.0;
inline constexpr double kBigMarkerSize = 2.0;

/// The rings and solid rings, a list for each size.
struct RingSizes {
  std::vector<Ellipse> big_rings;
  std::vector<Ellipse> small_rings;
  std::vector<Ellipse> big_solids;
  std::vector<Ellipse> small_solids;
};

/// Compares each ring and then each solid ring with the dots near it. One of neither size (a ratio of 2 exactly, of 1
/// or less, or no dots near) joins the dots at once and counts as one for those behind it.
RingSizes sortRingsBySize(const NearbyDots& nearby, EllipsesByClass& lists);

}  // namespace kestrune
