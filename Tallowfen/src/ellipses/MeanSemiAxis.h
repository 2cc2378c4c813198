#pragma once

#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Which dots are a marker's neighbours, with whose size its own is compared.
struct NearbyDots {
  double reach = 0.0;         ///< Half side of the square around the marker, in the marker's semi-axes, exclusive.
  double least_semi_a = 0.0;  ///< Smaller ellipses are specks; pixels, exclusive.
};

/// Of a board in an image of that width.
NearbyDots nearbyDotsOf(const RingTargetConfig& config, int image_width);

/// Mean `semi_a` of the members near the ellipse. NaN when there is none, so that every comparison with it fails.
double MeanSemiAxisNear(const NearbyDots& nearby, const std::vector<Ellipse>& list, const Ellipse& ellipse);

}  // namespace kestrune
