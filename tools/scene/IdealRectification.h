#pragma once

#include "tools/scene/StereoRig.h"

namespace scene {

/// The two turns that make the rows of a stereo pair agree.
struct IdealRectification {
  Matrix3 left;   ///< Rectified left frame from the left camera's frame.
  Matrix3 right;  ///< Rectified right frame from the right camera's frame.
};

/// Each camera turns half of the way to the other, then both turn so that the baseline lies along x (Bouguet's way).
/// Precondition: the baseline lies nearer to x than to y.
IdealRectification idealRectification(const StereoRig& rig);

/// The common focal length in pixels that the row differences of `Truth` are told for: the mean fy of two Brown cameras
/// at scale 1, as OpenCV's stereo rectification takes it; otherwise the smaller of the two cameras' larger focal
/// lengths, times the scale.
double rectifiedFocal(const StereoRig& rig, double f_scale);

}  // namespace scene
