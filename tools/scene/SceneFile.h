#pragma once

#include <string>

#include "tools/scene/Presets.h"
#include "tools/scene/SceneRecipe.h"

/// Scenes told by JSON documents; see docs/formats/scene_file.md.
namespace scene {

/// What a document asks for. What it leaves out is that of its preset, or of ring_640. `options` win over it. `place`
/// names the document in messages. Throws `polarline::InputError` with the place, the line or the key's path, what was
/// found and what was wanted.
SceneRecipe parsedScene(const std::string& text, const std::string& place, const PresetOptions& options);

/// The same of a file. Throws `polarline::InputError` when it can't be read, too.
SceneRecipe readScene(const std::string& path, const PresetOptions& options);

/// The recipe as a document that tells everything, and makes the same scene to the last digit.
std::string sceneText(SceneRecipe recipe);

}  // namespace scene
