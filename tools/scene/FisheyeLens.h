#pragma once

#include "tools/scene/Lens.h"

namespace scene {

/// The angle model (Kannala and Brandt 2006): theta (1 + k1 theta^2 + k2 theta^4 + k3 theta^6 + k4 theta^8) is the raw
/// radius, theta the angle to the axis. `lens` is k1 to k4; the rest is unused.
RawPoint distortFisheye(const std::array<double, 8>& lens, Point2 ideal);

}  // namespace scene
