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

/// The common focal length in pixels that the row differences of `Truth` are told for: the smaller fy of the two,
/// shortened for a Brown lens of negative K1 as OpenCV's stereo rectification does it.
double rectifiedFocal(const StereoRig& rig);

}  // namespace scene
