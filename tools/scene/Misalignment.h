#pragma once

#include "tools/scene/StereoRig.h"

namespace scene {

/// What the cameras that took the pictures have more than their calibration says, told of the right camera. Turns and
/// shifts are in the rectified frame of the calibration (x right, y down, z forward).
struct Misalignment {
  double rotation_x = 0.0;   ///< Degrees. Positive: the right camera looks down, its picture's points move up.
  double rotation_y = 0.0;   ///< Degrees. Positive: the right picture's points move right.
  double rotation_z = 0.0;   ///< Degrees. Positive: the right picture's points move clockwise.
  double focal_ratio = 0.0;  ///< Focal lengths right by left, by those of the calibration, less 1.
  double row_offset = 0.0;   ///< Pixels. Positive: the right picture's points move down.
  double baseline_y = 0.0;   ///< Board units. Positive: the right camera stands higher.
  double baseline_z = 0.0;   ///< Board units. Positive: the right camera stands further back.
  double k1 = 0.0;           ///< First lens coefficient of the right camera.

  bool operator==(const Misalignment&) const = default;
};

/// The cameras that took the pictures, given the calibration. For a point of the rectified left frame:
/// X_right_true = Rz Rx Ry (X_left + T_calibrated + (0, baseline_y, baseline_z)), in the rectified right frame of the
/// calibration. So the right camera is shifted first and then turned about its own centre. What is 0 changes nothing,
/// to the last digit. A polynomial camera keeps its table: its misalignment is laid on the lens that the table is
/// fitted to. Precondition: that of `idealRectification`.
StereoRig misaligned(const StereoRig& calibrated, const Misalignment& misalignment);

}  // namespace scene
