#pragma once

#include "tools/scene/PoseFit.h"
#include "tools/scene/PresetBoards.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Scene.h"

/// One pair of a board in the smallest image in which it is found: a run takes some hundredths of a second.
namespace small_scene {

inline scene::Scene of(const scene::StereoRig& rig, const scene::Board& board) {
  scene::Scene scene;
  scene.name = "small";
  scene.rig = scene.given = rig;
  scene.board = board;
  scene.left_from_board.push_back(scene::fitPose(rig, board, {3.0, -4.0, 2.0, 0.92}));
  return scene;
}

/// The same with another pose for a second pair.
inline scene::Scene withSecondPose(scene::Scene scene) {
  scene.left_from_board.push_back(scene::fitPose(scene.rig, scene.board, {-4.0, 3.0, -2.0, 0.92}));
  return scene;
}

inline constexpr scene::RigSize kDotSize{128, 102, 60.0};

/// Four big dots for markers; as many dots as every evaluation asks for.
inline scene::Scene dots() { return of(scene::brownRig(kDotSize), scene::bigDotBoard(7, 9)); }

/// The same in the smallest image that is searched for circles at its own scale.
inline scene::Scene circles() { return of(scene::brownRig({644, 515, 60.0}), scene::bigDotBoard(7, 9)); }

/// The dots as a rectified pair.
inline scene::Scene rectified() {
  scene::Scene scene = of(scene::rectifiedRig(kDotSize), scene::bigDotBoard(7, 9));
  scene.settings.rectified = true;
  return scene;
}

/// The same through polynomial lenses.
inline scene::Scene polynomial() {
  scene::Scene scene = of(scene::polyRig(kDotSize), scene::bigDotBoard(7, 9));
  scene.settings.type = 3;
  return scene;
}

/// The same with eight fixed points.
inline scene::Scene frame() {
  scene::Scene scene = dots();
  scene.settings.frame_ids = {10, 12, 14, 16, 46, 48, 50, 52};
  return scene;
}

/// Rings for markers.
inline scene::Scene rings() {
  scene::Board board = scene::smallRingBoard();
  board.rows = 9;
  board.cols = 11;
  board.inner_width = board.outter_width = 9;
  board.inner_height = board.outter_height = 7;
  board.margin = 1.0;
  return of(scene::brownRig({200, 160, 60.0}), board);
}

}  // namespace small_scene
