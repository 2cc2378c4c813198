#pragma once

#include <opencv2/core.hpp>

#include "tools/scene/Board.h"
#include "tools/scene/Camera.h"
#include "tools/scene/Irradiance.h"
#include "tools/scene/Optics.h"
#include "tools/scene/Pose.h"
#include "tools/scene/StereoRig.h"

/// A board of one dot of 6 mm and a small camera, for figures that can be told by hand.
inline scene::Board oneDotBoard() {
  scene::Board board;
  board.kind = scene::BoardKind::kBigDots;
  board.rows = board.cols = 1;
  board.inner_width = board.inner_height = 9;  // the markers fall beside the board
  board.margin = 100.0;
  return board;
}

inline scene::Camera smallPinhole() {
  scene::Camera camera;
  camera.width = 100;
  camera.height = 80;
  camera.fx = camera.fy = 200.0;
  camera.cx = 50.0;
  camera.cy = 40.0;
  return camera;
}

/// Dark ink 0 on bright paper 1, nothing else: one less the grey is the share of ink.
inline scene::Optics darkness() {
  scene::Optics optics;
  optics.paper = 1.0;
  optics.ink = 0.0;
  optics.surround = 1.0;
  optics.texture = 0.0;
  return optics;
}

/// Area, in pixels, and centroid of the ink in an irradiance of `darkness`.
struct InkMoments {
  double area = 0.0;
  scene::Point2 centre;
};
inline InkMoments inkMoments(const cv::Mat& irradiance, const cv::Rect& window) {
  InkMoments moments;
  for (int v = window.y; v < window.y + window.height; ++v) {
    for (int u = window.x; u < window.x + window.width; ++u) {
      const double ink = 1.0 - irradiance.at<float>(v, u);
      moments.area += ink;
      moments.centre = moments.centre + ink * scene::Point2{1.0 * u, 1.0 * v};
    }
  }
  moments.centre = (1.0 / moments.area) * moments.centre;
  return moments;
}
