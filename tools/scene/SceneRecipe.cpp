#include "tools/scene/SceneRecipe.h"

#include "tools/scene/PolyFit.h"

namespace scene {
namespace {

StereoRig fitted(StereoRig rig) {
  if (rig.left.model != LensModel::kPoly) return rig;
  rig.left = fittedPolyCamera(rig.left);
  rig.right = fittedPolyCamera(rig.right);
  return rig;
}

Pose poseOf(const PoseRecipe& recipe, const StereoRig& rig, const Board& board) {
  if (const auto* wish = std::get_if<PoseWish>(&recipe)) return fitPose(rig, board, *wish);
  const auto& [degrees, translation] = std::get<PlacedPose>(recipe);
  return {rotationFromAngles({radians(degrees.rx), radians(degrees.ry), radians(degrees.rz)}), translation};
}

int distortionCode(LensModel model) {
  switch (model) {
    case LensModel::kFisheye:
      return 2;
    case LensModel::kPoly:
      return 3;
    case LensModel::kBrown:
      break;
  }
  return 1;
}

}  // namespace

Scene sceneOf(const SceneRecipe& recipe) {
  Scene scene;
  scene.name = recipe.name;
  scene.note = recipe.note;
  scene.rig = scene.given = fitted(recipe.rig);
  if (recipe.given) scene.given = fitted(*recipe.given);
  if (recipe.misalignment != Misalignment{}) scene.rig = fitted(misaligned(recipe.rig, recipe.misalignment));
  scene.board = recipe.board;
  scene.optics = recipe.optics;
  scene.seed = recipe.seed;
  scene.settings = recipe.settings;
  scene.settings.type = distortionCode(recipe.rig.left.model);
  for (const PoseRecipe& pose : recipe.poses) scene.left_from_board.push_back(poseOf(pose, scene.rig, scene.board));
  return scene;
}

}  // namespace scene
