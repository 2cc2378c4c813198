#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/scene/SceneRecipe.h"

namespace scene {

/// What a caller may change in a preset; what is empty stays the preset's own.
struct PresetOptions {
  std::optional<int> pairs;
  std::optional<std::uint64_t> seed;
  std::optional<double> read_noise;  ///< Greys; 0 takes the shot noise away too.
};

/// A preset as a list shows it.
struct PresetInfo {
  std::string name;
  std::string note;
};
std::vector<PresetInfo> presetInfos();

/// The names only, in the same order.
std::vector<std::string> presetNames();

/// What the scene of that name is made from; empty when there is none.
std::optional<SceneRecipe> presetRecipe(const std::string& name, const PresetOptions& options = {});

/// The scene of that name; empty when there is none.
std::optional<Scene> makePreset(const std::string& name, const PresetOptions& options = {});

}  // namespace scene
