#pragma once

#include <string>

#include "tools/scene/Scene.h"

/// The board's description for the detector, in the three forms that it reads. All hold the same values.
namespace scene {

std::string targetIni(const Scene& scene);
std::string targetJson(const Scene& scene);
std::string targetYaml(const Scene& scene);

}  // namespace scene
