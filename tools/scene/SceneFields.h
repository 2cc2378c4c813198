#pragma once

#include "tools/scene/Fields.h"
#include "tools/scene/SceneRecipe.h"

namespace scene {

/// The scene file, key by key; see docs/formats/scene_file.md. `schema`, `preset`, `pairs` and `noise` are the
/// reader's.
void sceneFields(Fields& fields, SceneRecipe& recipe);

}  // namespace scene
