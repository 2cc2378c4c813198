#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <random>
#include <vector>

#include "diagnose/SeenSet.h"
#include "tools/scene/Lens.h"
#include "tools/scene/Misalignment.h"
#include "tools/scene/PolyFit.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/PresetRigs.h"

/// Dots of a board as misaligned cameras see them, by the renderer's own projection, which shares no code with the
/// library; and the calibration that knows nothing of the misalignment.
struct SeenScene {
  /// With the lenses of a model, before the tables of a polynomial one are fitted.
  explicit SeenScene(LensModel of) : model(of), lenses(lensesOf(of)) {
    board.rows = 13;
    board.cols = 17;
    board.step = 35.0;
  }

  static scene::StereoRig lensesOf(LensModel of) {
    if (of == LensModel::kFisheye) return scene::fisheyeRig({1280, 800, 50.0});
    if (of == LensModel::kPoly) return scene::polyLenses({1920, 1200, 60.0});
    scene::StereoRig rig = scene::brownRig({1280, 1024, 60.0});
    if (of == LensModel::kBrownFive) {
      for (scene::Camera* camera : {&rig.left, &rig.right}) camera->lens[3] = camera->lens[4] = camera->lens[5] = 0.0;
    }
    return rig;
  }
  static scene::StereoRig fitted(scene::StereoRig rig) {
    if (rig.left.model != scene::LensModel::kPoly) return rig;
    rig.left = scene::fittedPolyCamera(rig.left);
    rig.right = scene::fittedPolyCamera(rig.right);
    return rig;
  }

  scene::StereoRig given() const { return fitted(lenses); }
  scene::StereoRig cameras() const { return fitted(scene::misaligned(lenses, misalignment)); }

  static CameraCalib calibOf(const scene::Camera& camera) {
    CameraCalib calib;
    calib.width = static_cast<std::uint32_t>(camera.width);
    calib.height = static_cast<std::uint32_t>(camera.height);
    calib.intrinsics = {camera.fx, camera.fy, camera.cx, camera.cy};
    std::ranges::copy(camera.lens, calib.intrinsics.begin() + 4);
    calib.poly_nx = static_cast<std::uint8_t>(camera.table.columns);
    calib.poly_ny = static_cast<std::uint8_t>(camera.table.rows);
    std::ranges::copy(camera.table.x, calib.poly_x.begin());
    std::ranges::copy(camera.table.y, calib.poly_y.begin());
    return calib;
  }
  static StereoCalibParams calibOf(const scene::StereoRig& rig) {
    const auto& [rx, ry, rz] = rig.right_from_left_angles;
    const auto& [tx, ty, tz] = rig.right_from_left_translation;
    return {calibOf(rig.right), calibOf(rig.left), {rx, ry, rz, tx, ty, tz}};
  }

  /// The board in each of the poses that are wished for. `noise` is asked for left x, y, right x, y of each dot.
  SeenSet seen(const std::vector<scene::PoseWish>& wishes) const {
    const scene::StereoRig rig = cameras();
    SeenSet set{calibOf(given()), model, {rig.left.width, rig.left.height}, {}, f_scale};
    for (const scene::PoseWish& wish : wishes) {
      set.pairs.push_back({set.pairs.size(), dotsOf(rig, scene::fitPose(rig, board, wish))});
    }
    return set;
  }

  LensModel model;
  scene::StereoRig lenses;
  scene::Misalignment misalignment;
  scene::Board board;
  double f_scale = 1.0;
  std::function<cv::Point2d(int row, int column)> noise = [](int, int) { return cv::Point2d(); };

 private:
  std::vector<SeenDot> dotsOf(const scene::StereoRig& rig, const scene::Pose& pose) const {
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
};

/// Two distances, tilted both ways.
inline std::vector<scene::PoseWish> twoDistances() {
  return {{18.0, -12.0, 5.0, 0.95}, {-15.0, 14.0, -8.0, 0.6}, {8.0, 16.0, 15.0, 0.8}};
}

/// Errors of single dots, normally distributed.
class OwnErrors {
 public:
  OwnErrors(double sd, unsigned seed) : sd_(sd), engine_(seed) {}
  cv::Point2d operator()(int, int) {
    const double x = sd_ * normal_(engine_);
    return {x, sd_ * normal_(engine_)};
  }

 private:
  double sd_;
  std::mt19937 engine_;
  std::normal_distribution<double> normal_;
};
