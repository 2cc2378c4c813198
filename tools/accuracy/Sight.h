#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "camera/CalibratedCamera.h"
#include "refine/RefineDots.h"
#include "tools/scene/Scene.h"
#include "tools/scene/Vectors.h"

namespace accuracy {

/// A place of the board's grid as it truly is in one picture.
struct TrueDot {
  int id = 0;
  bool measurable = true;  ///< Drawn and whole in the picture.
  bool marker = false;
  scene::Point2 centre;   ///< Image of the circle's centre.
  scene::Point2 ellipse;  ///< Centre of the imaged outline.
  double radius = 0.0;    ///< Of the imaged outline, pixels.
  scene::Point2 bound;    ///< Cramer-Rao bound of the centre's standard deviation along x and y, pixels.
};

/// One camera's picture of one pose, and all that is true of it.
struct Sight {
  scene::Scene scene;
  scene::Camera camera;
  scene::Pose camera_from_board;
  cv::Mat picture;
  std::vector<TrueDot> dots;  ///< By id.
};

/// The left picture of a pose, or the right one. `optical`: the blur is the lens's, before the pixels, not the
/// renderer's own behind them.
Sight sightOf(const scene::Scene& scene, std::size_t pose, bool right, bool optical = false);

/// The camera as the library's calibration tells it.
CalibratedCamera calibratedCamera(const scene::Camera& camera);

/// What a detection of the picture gives, with the places on the board; empty when nothing is found.
std::vector<DotPlace> detectedPlaces(const Sight& sight);

/// The true places of all measurable dots, off by up to `off` pixels each way: what stands for a detection where it is
/// not the point.
std::vector<DotPlace> nearTruePlaces(const Sight& sight, double off);

}  // namespace accuracy
