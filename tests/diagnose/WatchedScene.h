#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>
#include <utility>
#include <vector>

#include "diagnose/warnings/Watch.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/PresetBoards.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Render.h"
#include "tools/scene/Scene.h"
#include "tools/scene/Truth.h"

/// A small rendered scene as a run without any error would see it: its pictures, and the dots where the truth has them.
/// A test spoils what it is about.
struct WatchedScene {
  scene::Scene scene;
  scene::PoseWish wish{6.0, -9.0, 3.0, 0.97};
  std::vector<double> fills;  ///< One a pair; empty: one pair as wished.
  diagnose::SetFacts facts;
  diagnose::AskedLimits limits;
  bool is_exchanged = false;  ///< Left and right.
  std::function<void(cv::Mat& picture, std::size_t side)> spoilPicture;
  std::function<void(PairObservation& seen, std::size_t pair)> spoilSeen;
  std::function<void(std::map<std::string, double>& figures, std::size_t pair)> addFigures;
  std::vector<polarline::PairQuality> quality;  ///< Of the pairs, once they were looked at.

  explicit WatchedScene(const scene::StereoRig& rig = scene::brownRig({320, 256, 60.0})) {
    scene.rig = scene.given = rig;
    scene.board = scene::bigDotBoard(9, 11);
    scene.board.margin = 0.7;
    scene.optics.supersampling = 6;
  }

  static CameraCalib calibOf(const scene::Camera& camera) {
    CameraCalib calib;
    calib.intrinsics = {camera.fx, camera.fy, camera.cx, camera.cy};
    std::copy(camera.lens.begin(), camera.lens.end(), calib.intrinsics.begin() + 4);
    return calib;
  }

  /// The board and the calibration that the scene gives.
  void tellFacts() {
    const auto& angles = scene.given.right_from_left_angles;
    const auto& way = scene.given.right_from_left_translation;
    facts.calib.emplace();
    facts.calib->left = calibOf(scene.given.left);
    facts.calib->right = calibOf(scene.given.right);
    facts.calib->extrinsics = {angles.rx, angles.ry, angles.rz, way.x, way.y, way.z};
    facts.model = scene.given.left.model == scene::LensModel::kFisheye ? LensModel::kFisheye : LensModel::kBrownEight;
    facts.grid = {scene.board.rows, scene.board.cols, 1.0};
    for (int id = 0; id < scene.board.rows * scene.board.cols; ++id)
      facts.board.emplace_back(id % scene.board.cols * scene.board.step, id / scene.board.cols * scene.board.step, 0.0);
  }

  PairObservation seenIn(std::size_t pair) const {
    const scene::PairTruth truth = scene::pairTruth(scene, pair);
    PairObservation seen;
    seen.found = {truth.dots.size(), truth.dots.size()};
    for (const scene::DotTruth& dot : truth.dots) {
      const auto single = [](const scene::Point2& at) {
        return cv::Point2f(static_cast<float>(at.x), static_cast<float>(at.y));
      };
      seen.raw.push_back({dot.id, single(dot.ellipse_left.centre), single(dot.ellipse_right.centre)});
      const auto row = static_cast<float>(dot.row_difference);
      seen.rectified.push_back({dot.id, {0.0F, row}, {0.0F, 0.0F}});
    }
    return seen;
  }

  std::vector<polarline::Warning> warnings() {
    if (facts.board.empty()) tellFacts();
    if (fills.empty()) fills = {wish.fill};
    for (const double fill : fills)
      scene.left_from_board.push_back(
          scene::fitPose(scene.rig, scene.board, {wish.tilt_x, wish.tilt_y, wish.roll, fill}));
    diagnose::Watch watch(facts);
    for (std::size_t pair = 0; pair < fills.size(); ++pair) {
      scene::ImagePair pictures = scene::renderPair(scene, pair);
      if (spoilPicture) spoilPicture(pictures.left, 0);
      if (spoilPicture) spoilPicture(pictures.right, 1);
      PairObservation seen = seenIn(pair);
      if (is_exchanged) std::swap(pictures.left, pictures.right);
      for (SharedDot& dot : seen.raw) {
        if (is_exchanged) std::swap(dot.left, dot.right);
      }
      if (spoilSeen) spoilSeen(seen, pair);
      diagnose::PairView view{pair, {pictures.left, pictures.right}, seen, {{"dy_means", 0.03}}};
      if (addFigures) addFigures(view.figures, pair);
      quality.push_back(watch.look(view));
    }
    return watch.warnings(limits);
  }

  std::vector<std::string> codes() {
    std::vector<std::string> list;
    for (const polarline::Warning& each : warnings()) list.push_back(each.code);
    return list;
  }
};

/// The only warning of a scene.
inline polarline::Warning onlyOne(WatchedScene& scene) {
  const std::vector<polarline::Warning> warnings = scene.warnings();
  EXPECT_EQ(warnings.size(), 1U);
  for (const auto& each : warnings) {
    if (warnings.size() > 1) ADD_FAILURE() << each.code << ": " << each.text;
  }
  return warnings.empty() ? polarline::Warning() : warnings[0];
}

/// A scene raises this warning, with these words in its text, and no other.
inline void expectOnly(WatchedScene& scene, const std::string& code, const std::string& words) {
  const polarline::Warning one = onlyOne(scene);
  EXPECT_EQ(one.code, code);
  EXPECT_THAT(one.text, ::testing::HasSubstr(words));
  EXPECT_FALSE(one.advice.empty());
}
