#include "polarline/simulate.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "polarline/errors.h"
#include "tools/scene/CalibrationBinary.h"
#include "tools/scene/Fields.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/SceneChecks.h"
#include "tools/scene/SceneFile.h"
#include "tools/scene/SetFolder.h"
#include "tools/scene/WriteScene.h"

namespace polarline {
namespace {

void checkOptions(const SimulateOptions& options) {
  if (options.pairs && (*options.pairs < 1 || *options.pairs > scene::kMostPairs))
    throw InputError("pairs",
                     fmt::format("found {}, wanted a whole number from 1 to {}", *options.pairs, scene::kMostPairs));
  if (options.noise && !(*options.noise >= 0.0 && *options.noise <= 255.0))
    throw InputError("noise", fmt::format("found {}, wanted a number from 0 to 255", *options.noise));
}

scene::SceneRecipe recipeOf(const std::string& name, const SimulateOptions& options) {
  checkOptions(options);
  const scene::PresetOptions changes{options.pairs, options.seed, options.noise};
  if (auto preset = scene::presetRecipe(name, changes)) return *std::move(preset);
  if (std::error_code ignored; !std::filesystem::exists(name, ignored))
    throw InputError(name,
                     "found no preset and no file of that name, wanted a preset (\"polarline simulate --list\" shows "
                     "them) or a scene file");
  scene::SceneRecipe recipe = scene::readScene(name, changes);
  scene::checkRecipe(recipe, name);
  return recipe;
}

scene::Scene sceneNamed(const std::string& name, const SimulateOptions& options) {
  const scene::SceneRecipe recipe = recipeOf(name, options);
  scene::Scene made = scene::sceneOf(recipe);
  scene::checkPoses(recipe, made, name);
  return made;
}

std::string contentOf(const std::vector<scene::SetFile>& files, const char* name) {
  const auto file = std::ranges::find(files, name, &scene::SetFile::name);
  return file == files.end() ? "" : file->content;
}

}  // namespace

std::vector<PresetInfo> presets() {
  std::vector<PresetInfo> all;
  for (const scene::PresetInfo& each : scene::presetInfos()) all.push_back({each.name, each.note});
  return all;
}

SimulatedSet simulate(const std::string& scene, const std::string& folder, const SimulateOptions& options) {
  const scene::Scene made = sceneNamed(scene, options);
  const std::size_t pairs = made.left_from_board.size();
  scene::SetFolder place(folder, options.scratch, options.force);
  try {
    scene::writeScene(made, place.path(), [&](std::size_t done) {
      if (options.progress) options.progress(done, pairs);
    });
  } catch (const OutputError&) {  // Names a scratch folder, which nobody knows and which is gone by now.
    throw OutputError(folder, "the files of the set could not be written; is there space left?");
  }
  place.finish();
  return {made.name, scene, folder, pairs, made.seed};
}

Simulated simulateImages(const std::string& scene, const SimulateOptions& options) {
  const scene::Scene made = sceneNamed(scene, options);
  const std::vector<scene::SetFile> files = scene::setFiles(made);
  Simulated set;
  set.name = made.name;
  set.polar = contentOf(files, "polar.txt");
  set.target = contentOf(files, "target.ini");
  set.calibration = contentOf(files, "calib.json");
  set.binary = scene::calibrationBinary(scene::binaryCameras(made.given));
  set.board = contentOf(files, "board_gt.txt");
  set.rectified = contentOf(files, "rectified.txt");
  set.truth = contentOf(files, "truth.json");
  scene::PairRenderer renderer(made);
  for (std::size_t index = 0; index < made.left_from_board.size(); ++index) {
    scene::ImagePair pair = renderer.render(index);
    set.left.push_back(std::move(pair.left));
    set.right.push_back(std::move(pair.right));
    if (options.progress) options.progress(index + 1, made.left_from_board.size());
  }
  return set;
}

std::string sceneFile(const std::string& scene, const SimulateOptions& options) {
  return scene::sceneText(recipeOf(scene, options));
}

}  // namespace polarline
