#include <cstdlib>

#include "fuzz/Harness.h"
#include "tools/scene/SceneChecks.h"
#include "tools/scene/SceneFile.h"

namespace {

scene::SceneRecipe checked(const std::string& text) {
  scene::SceneRecipe recipe = scene::parsedScene(text, "scene.json", {});
  scene::checkRecipe(recipe, "scene.json");
  return recipe;
}

}  // namespace

// What is accepted can be printed, and the print is accepted and prints the same. Few poses are fitted, which takes
// time; the tables of polynomial cameras are not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    scene::SceneRecipe recipe = checked(std::string(data, data + size));
    const std::string printed = scene::sceneText(recipe);
    try {
      if (scene::sceneText(checked(printed)) != printed) std::abort();
    } catch (const std::exception&) {
      std::abort();
    }
    if (recipe.poses.size() > 2 || recipe.rig.left.model == scene::LensModel::kPoly) return;
    scene::checkPoses(recipe, scene::sceneOf(recipe), "scene.json");
  });
}
