#pragma once

#include <string>

#include "tools/scene/SceneRecipe.h"

namespace scene {

/// What the keys of a scene must be to each other. `place` is the scene's file or preset; throws
/// `polarline::InputError` with the place and the key.
void checkRecipe(const SceneRecipe& recipe, const std::string& place);

/// Whether every pose could be met: the board in front of both cameras, and where it was wished, in both images.
void checkPoses(const SceneRecipe& recipe, const Scene& scene, const std::string& place);

}  // namespace scene
