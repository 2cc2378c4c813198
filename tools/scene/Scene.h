#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/scene/Board.h"
#include "tools/scene/Optics.h"
#include "tools/scene/Pose.h"
#include "tools/scene/StereoRig.h"

namespace scene {

/// What the run's settings shall say beyond the geometry.
struct RunSettings {
  int type = 1;                ///< Distortion code of the polar configuration: 1 Brown, 2 fisheye, 3 polynomial tables.
  double f_scale = 1.0;        ///< Scale of the rectified focal length.
  int id_method = 0;           ///< Numbering of big-dot boards.
  int bin_method = 0;          ///< Binarisation of big-dot boards.
  bool rectified = false;      ///< The cameras are a rectified pair, their calibration is five numbers.
  std::vector<int> frame_ids;  ///< Board ids that serve as the fixed points of a frame run; empty: no frame run.
};

/// All that is needed to render a set of image pairs and to say what they show.
struct Scene {
  std::string name;
  std::string note;
  StereoRig rig;  ///< The cameras that take the images.
  StereoRig
      given;  ///< The calibration that the files tell; it differs from `rig` where a wrong calibration is the point.
  Board board;
  Optics optics;
  std::vector<Pose> left_from_board;  ///< One pose a pair, in the left camera's frame.
  std::uint64_t seed = 1;
  RunSettings settings;
};

/// The board's pose in the right camera's frame.
Pose rightFromBoard(const StereoRig& rig, const Pose& left_from_board);

}  // namespace scene
