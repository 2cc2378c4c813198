#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/scene/Misalignment.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/Scene.h"

namespace scene {

/// A pose told in numbers: X_left = R X_board + t.
struct PlacedPose {
  Angles degrees;  ///< R = Rz Rx Ry of these, in degrees.
  Point3 translation;
};

using PoseRecipe = std::variant<PoseWish, PlacedPose>;

/// What a scene is made from, in the few numbers that a person writes: poses as wishes, polynomial cameras as the lens
/// that their table is fitted to. A polynomial camera of a recipe has Brown's coefficients in `lens`, and a table
/// without coefficients whose columns and rows are wanted.
struct SceneRecipe {
  std::string name;
  std::string note;
  StereoRig rig;                   ///< The cameras before the misalignment.
  std::optional<StereoRig> given;  ///< The calibration that the files tell; none: `rig`.
  Misalignment misalignment;       ///< Of the cameras that take the images, against `rig`.
  Board board;
  Optics optics;
  std::vector<PoseRecipe> poses;  ///< One a pair.
  std::uint64_t seed = 1;
  RunSettings settings;
};

/// The scene: polynomial tables fitted, poses found for the cameras that take the images. The distortion code is the
/// rig's lens model. Preconditions: those of `fitPose` for each wish, of `misaligned` and of `fitPolyCamera`.
Scene sceneOf(const SceneRecipe& recipe);

}  // namespace scene
