#pragma once

#include <cstddef>
#include <vector>

#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/Scene.h"

namespace scene {

/// What is true of one place of the board's grid in one pair. Pixels are of the images as rendered.
struct DotTruth {
  int id = 0;
  bool drawn = true;    ///< There is ink at this place.
  bool in_view = true;  ///< The whole outline lies inside both images.
  Point3 point_left;    ///< The centre in the left camera's frame, millimetres.
  Point2 pixel_left;    ///< Image of the centre.
  Point2 pixel_right;
  ImagedEllipse ellipse_left;  ///< Image of the outline; its centre is what a detector measures.
  ImagedEllipse ellipse_right;
  Point2 rectified_left;  ///< Centre of the imaged outline after ideal rectification, normalised (x / z, y / z).
  Point2 rectified_right;
  double row_difference =
      0.0;  ///< Left row less right row after rectification by the given calibration, at `rectified_focal` pixels.
};

/// What is true of one pair.
struct PairTruth {
  Pose left_from_board;
  double rectified_focal = 0.0;
  std::vector<DotTruth> dots;  ///< One a grid place, by id.
};

/// The truth of the index-th pair. The given calibration may differ from the cameras in everything but the model and
/// the size. Precondition: `index` is a pose of the scene, and the board is in front of both cameras.
PairTruth pairTruth(const Scene& scene, std::size_t index);

}  // namespace scene
