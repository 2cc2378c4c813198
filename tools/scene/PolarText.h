#pragma once

#include <string>

#include "tools/scene/Scene.h"

namespace scene {

/// The polar configuration of a scene, nearly every switch on. Its four points stand two places in from the board's
/// corners, in the order upper left, upper right, lower left, lower right.
std::string polarText(const Scene& scene);

}  // namespace scene
