#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <opencv2/core.hpp>
#include <stdexcept>
#include <vector>

#include "support/EvaluatorFixture.h"
#include "tools/scene/Lens.h"
#include "tools/scene/Pose.h"
#include "tools/scene/PresetRigs.h"

/// A stereo pair that sees a board of known points exactly: the pixels come from the renderer's own projection, which
/// shares no code with the library.
struct ExactPair : EvaluatorFixture {
  scene::StereoRig rig = scene::brownRig({640, 512, 60.0});
  scene::Pose left_from_board{scene::rotationFromAngles({0.2, -0.15, 0.1}), {-90.0, -70.0, 500.0}};
  std::vector<cv::Point3f> board;

  static CameraFloats floatsOf(const scene::Camera& camera) {
    const auto narrowed = [](double value) { return static_cast<float>(value); };
    const auto lens = [&](std::size_t k) { return narrowed(camera.lens[k]); };
    return {narrowed(camera.fx),
            narrowed(camera.fy),
            narrowed(camera.cx),
            narrowed(camera.cy),
            lens(0),
            lens(1),
            lens(2),
            lens(3),
            lens(4),
            lens(5),
            lens(6),
            lens(7)};
  }
  static cv::Mat matrixOf(const scene::Camera& camera) {
    return (cv::Mat_<double>(3, 3) << camera.fx, 0, camera.cx, 0, camera.fy, camera.cy, 0, 0, 1);
  }
  static cv::Mat matOf(const scene::Matrix3& matrix) {
    return cv::Mat(3, 3, CV_64FC1, const_cast<double*>(matrix.values.data())).clone();
  }
  static scene::Point3 pointOf(const cv::Point3f& point) { return {point.x, point.y, point.z}; }
  static cv::Point2f pixelOf(const scene::Camera& camera, const scene::Point3& point_camera) {
    const auto pixel = scene::project(camera, point_camera);
    if (!pixel) throw std::runtime_error("the point is not seen");
    return {static_cast<float>(pixel->x), static_cast<float>(pixel->y)};
  }

  EvaluationCameras cameras() const {
    const scene::Point3& T = rig.right_from_left_translation;
    return {matrixOf(rig.left), matrixOf(rig.right), matOf(scene::rotationFromAngles(rig.right_from_left_angles)),
            (cv::Mat_<double>(3, 1) << T.x, T.y, T.z)};
  }

  /// A flat board of rows x columns points, 18 apart; by id.
  void makeBoard(int rows, int columns) {
    board.clear();
    for (int id = 0; id < rows * columns; ++id) {
      board.emplace_back(18.0F * static_cast<float>(id % columns), 18.0F * static_cast<float>(id / columns), 0.0F);
    }
  }
  scene::Point3 pointLeft(const cv::Point3f& point_board) const {
    return scene::transformed(left_from_board, pointOf(point_board));
  }
  /// Both images see the point of the left camera's frame under this id.
  void see(std::int32_t id, const scene::Point3& point_left) {
    shared(id, pixelOf(rig.left, point_left), pixelOf(rig.right, scene::rightFromLeft(rig, point_left)));
  }
  /// Both images see the whole board, its points displaced by `deform` in the board's frame.
  void seeBoard(const std::function<cv::Point3f(const cv::Point3f&)>& deform = [](const cv::Point3f& p) { return p; }) {
    for (std::size_t id = 0; id < board.size(); ++id) see(static_cast<std::int32_t>(id), pointLeft(deform(board[id])));
  }

  PairEvaluator exactEvaluator() {
    PairEvaluator result = evaluator();
    result.left_dist = floatsOf(rig.left);
    result.right_dist = floatsOf(rig.right);
    result.boardPoints = board;
    return result;
  }
};
