#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "refine/RefineDots.h"
#include "support/Places.h"
#include "tools/accuracy/Statistics.h"
#include "tools/scene/Presets.h"
#include "tools/scene/SceneRecipe.h"

namespace {

nlohmann::json bounds() {
  std::ifstream file(places::inProject("tests/refine/accuracy_bounds.json"));
  return nlohmann::json::parse(file);
}

std::vector<std::string> boundedScenes() {
  std::vector<std::string> names;
  const nlohmann::json all = bounds();
  for (const auto& [name, bound] : all.items())
    if (bound.is_object()) names.push_back(name);
  return names;
}

/// One pair of a preset, as it is or tilted about x.
scene::Scene sceneOf(const nlohmann::json& bound) {
  scene::PresetOptions options;
  options.pairs = 1;
  auto recipe = scene::presetRecipe(bound.at("preset").get<std::string>(), options).value();
  if (bound.contains("tilt")) recipe.poses = {scene::PoseWish{bound.at("tilt").get<double>(), 10.0, 3.0, 0.9}};
  recipe.optics.supersampling = bound.value("samples", recipe.optics.supersampling);
  return scene::sceneOf(recipe);
}

class RefinedAccuracy : public ::testing::TestWithParam<std::string> {};

TEST_P(RefinedAccuracy, StaysWithinTheBoundsKeptInTheRepository) {
  const nlohmann::json bound = bounds().at(GetParam());
  const scene::Scene scene = sceneOf(bound);
  const accuracy::Sight sight = accuracy::sightOf(scene, 0, false, bound.value("optical", false));
  const std::vector<DotPlace> places = accuracy::nearTruePlaces(sight, 0.3);
  const RefinedPicture picture = refineDots(sight.picture, places, accuracy::calibratedCamera(sight.camera));
  const auto centres = accuracy::refinedCentres(picture);
  const accuracy::Errors errors = accuracy::errorsOf({&sight}, {centres});
  const auto calibration = accuracy::calibrationOf({&sight}, {picture});
  EXPECT_GE(static_cast<double>(centres.size()),
            bound.at("refined").get<double>() * static_cast<double>(places.size()));
  EXPECT_LE(errors.rms, bound.at("rms").get<double>());
  EXPECT_LE(errors.by_bound, bound.at("by_bound").get<double>());
  EXPECT_LE(std::abs(errors.mean.x), bound.at("mean").get<double>());
  EXPECT_LE(std::abs(errors.mean.y), bound.at("mean").get<double>());
  EXPECT_NEAR(calibration.observed_by_predicted, 1.0, bound.at("prediction").get<double>());
}

INSTANTIATE_TEST_SUITE_P(Scenes, RefinedAccuracy, ::testing::ValuesIn(boundedScenes()));

}  // namespace
