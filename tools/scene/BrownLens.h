#pragma once

#include "tools/scene/Lens.h"

namespace scene {

/// Brown's model with a rational radial part (Brown 1966). `lens` is K1 to K6, P1, P2.
RawPoint distortBrown(const std::array<double, 8>& lens, Point2 ideal);

}  // namespace scene
