#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tools/scene/Scene.h"

namespace scene {

/// A file of a set that is no picture.
struct SetFile {
  std::string name;
  std::string content;
};

/// The files that describe the scene: calib.bin, calib.json (not for the polynomial model, which JSON cannot hold),
/// target.ini, target.json, target.yml, polar.txt, board_gt.txt, list.txt, truth.json, and for a rectified pair
/// rectified.txt.
std::vector<SetFile> setFiles(const Scene& scene);

/// Called when so many pairs have been rendered.
using PairsDone = std::function<void(std::size_t)>;

/// Renders the scene and writes it as a complete input of a run: left_0.png, right_0.png and so on, and the files that
/// describe it. The folder is made. Throws polarline::OutputError when something cannot be written.
void writeScene(const Scene& scene, const std::string& folder, const PairsDone& done = {});

}  // namespace scene
