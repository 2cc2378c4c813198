#pragma once

#include <string>

#include "tools/scene/Scene.h"

namespace scene {

/// Everything that is known of a scene as one JSON document: board, markers, optics, the cameras that took the images,
/// the calibration given, and for each pair the pose, the true figures and the truth of every dot. The dots' members
/// are listed in "dot_fields".
std::string truthJson(const Scene& scene);

}  // namespace scene
