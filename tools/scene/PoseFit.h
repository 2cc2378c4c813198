#pragma once

#include "tools/scene/Board.h"
#include "tools/scene/Pose.h"
#include "tools/scene/StereoRig.h"

namespace scene {

/// How the board shall stand: turned about x, y (tilt) and z (roll), in degrees, and how much of the image it shall
/// fill.
struct PoseWish {
  double tilt_x = 0.0;
  double tilt_y = 0.0;
  double roll = 0.0;
  double fill =
      0.92;  ///< Largest reach of the paper's outline from either image's centre, as a share of half the image's size.
};

/// The board's pose in the left camera's frame that meets the wish: between the two image centres, as near as `fill`
/// lets it come. Precondition: the board can be brought so into both images.
Pose fitPose(const StereoRig& rig, const Board& board, const PoseWish& wish);

/// The largest reach of the paper's outline from either image's centre, as a share of half the image's size.
double reachOf(const StereoRig& rig, const Board& board, const Pose& left_from_board);

}  // namespace scene
