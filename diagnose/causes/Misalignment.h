#pragma once

#include <array>
#include <cstddef>

#include "camera/LensModel.h"
#include "input/StereoCalibParams.h"

/// The causes that a fit knows, in the order of every list of them.
enum class CauseKind : std::size_t {
  kRotationX,
  kRotationY,
  kRotationZ,
  kFocalRatio,
  kRowOffset,
  kBaselineY,
  kBaselineZ,
  kK1,
};
inline constexpr std::size_t kCauses = 8;

/// What the cameras that took the pictures have more than the calibration says, of the right camera, by `CauseKind`:
/// radians about x, y, z; focal lengths right by left, less 1; pixels; board units along y and z; first lens
/// coefficient. Turns and shifts are in the rectified frame of the calibration (x right, y down, z forward).
using Misalignment = std::array<double, kCauses>;

/// The calibration of the misaligned cameras. For a point of the rectified left frame:
/// X_right_true = Rz Rx Ry (X_left + T + (0, baseline_y, baseline_z)), in the rectified right frame of `calib`. The
/// left camera stays. Of a polynomial lens the table takes the change of the first coefficient.
StereoCalibParams misaligned(const StereoCalibParams& calib, LensModel model, const Misalignment& misalignment);

inline double& at(Misalignment& misalignment, CauseKind kind) { return misalignment[static_cast<std::size_t>(kind)]; }
inline double at(const Misalignment& misalignment, CauseKind kind) {
  return misalignment[static_cast<std::size_t>(kind)];
}
