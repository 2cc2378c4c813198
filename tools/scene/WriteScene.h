#pragma once

#include <string>

#include "tools/scene/Scene.h"

namespace scene {

/// Renders the scene and writes it as a complete input of a run: left_0.png, right_0.png and so on, list.txt,
/// calib.bin, calib.json (not for the polynomial model, which JSON cannot hold), target.ini, target.json, target.yml,
/// polar.txt, board_gt.txt, truth.json, and for a rectified pair rectified.txt. The folder is made. Throws
/// std::runtime_error when something cannot be written.
void writeScene(const Scene& scene, const std::string& folder);

}  // namespace scene
