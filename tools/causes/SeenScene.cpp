#include "tools/causes/SeenScene.h"

#include <algorithm>
#include <cstddef>

#include "tools/scene/CalibrationNumbers.h"
#include "tools/scene/Lens.h"
#include "tools/scene/PolyFit.h"
#include "tools/scene/PresetRigs.h"

namespace {

CameraCalib cameraCalibOf(const scene::Camera& camera) {
  CameraCalib calib;
  calib.width = static_cast<std::uint32_t>(camera.width);
  calib.height = static_cast<std::uint32_t>(camera.height);
  calib.intrinsics = scene::intrinsicsOf(camera);
  calib.poly_nx = static_cast<std::uint8_t>(camera.table.columns);
  calib.poly_ny = static_cast<std::uint8_t>(camera.table.rows);
  std::ranges::copy(camera.table.x, calib.poly_x.begin());
  std::ranges::copy(camera.table.y, calib.poly_y.begin());
  return calib;
}

}  // namespace

SeenScene::SeenScene(LensModel of) : model(of), lenses(lensesOf(of)) {
  board.rows = 13;
  board.cols = 17;
  board.step = 35.0;
}

scene::StereoRig SeenScene::lensesOf(LensModel of) {
  if (of == LensModel::kFisheye) return scene::fisheyeRig({1280, 800, 50.0});
  if (of == LensModel::kPoly) return scene::polyLenses({1920, 1200, 60.0});
  scene::StereoRig rig = scene::brownRig({1280, 1024, 60.0});
  if (of == LensModel::kBrownFive) {
    for (scene::Camera* camera : {&rig.left, &rig.right}) camera->lens[3] = camera->lens[4] = camera->lens[5] = 0.0;
  }
  return rig;
}

scene::StereoRig SeenScene::fitted(scene::StereoRig rig) {
  if (rig.left.model != scene::LensModel::kPoly) return rig;
  rig.left = scene::fittedPolyCamera(rig.left);
  rig.right = scene::fittedPolyCamera(rig.right);
  return rig;
}

StereoCalibParams SeenScene::calibOf(const scene::StereoRig& rig) {
  const auto& [rx, ry, rz] = rig.right_from_left_angles;
  const auto& [tx, ty, tz] = rig.right_from_left_translation;
  return {cameraCalibOf(rig.right), cameraCalibOf(rig.left), {rx, ry, rz, tx, ty, tz}};
}

SeenSet SeenScene::seen(const std::vector<scene::PoseWish>& wishes) const {
  const scene::StereoRig rig = cameras();
  SeenSet set{calibOf(given()), model, {rig.left.width, rig.left.height}, {}, f_scale};
  for (const scene::PoseWish& wish : wishes) {
    set.pairs.push_back({set.pairs.size(), dotsOf(rig, scene::fitPose(rig, board, wish))});
  }
  return set;
}

std::vector<SeenDot> SeenScene::dotsOf(const scene::StereoRig& rig, const scene::Pose& pose) const {
  std::vector<SeenDot> dots;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.cols; ++column) {
      const scene::Point3 left = scene::transformed(pose, {column * board.step, row * board.step, 0.0});
      const auto left_pixel = scene::project(rig.left, left);
      const auto right_pixel = scene::project(rig.right, scene::rightFromLeft(rig, left));
      if (!left_pixel || !right_pixel) continue;
      SeenDot dot;
      dot.id = row * board.cols + column;
      dot.left = cv::Point2d(left_pixel->x, left_pixel->y) + noise(row, column);
      dot.right = cv::Point2d(right_pixel->x, right_pixel->y) + noise(row, column);
      dots.push_back(dot);
    }
  }
  return dots;
}

const std::map<std::string, double scene::Misalignment::*>& misalignmentFields() {
  using M = scene::Misalignment;
  static const std::map<std::string, double M::*> kFields{
      {"rotation_x", &M::rotation_x}, {"rotation_y", &M::rotation_y},
      {"rotation_z", &M::rotation_z}, {"focal_ratio", &M::focal_ratio},
      {"row_offset", &M::row_offset}, {"baseline_y", &M::baseline_y},
      {"baseline_z", &M::baseline_z}, {"k1", &M::k1}};
  return kFields;
}

double scene::Misalignment::*misalignmentField(const std::string& cause) { return misalignmentFields().at(cause); }

std::vector<scene::PoseWish> twoDistances() {
  return {{18.0, -12.0, 5.0, 0.95}, {-15.0, 14.0, -8.0, 0.6}, {8.0, 16.0, 15.0, 0.8}};
}
