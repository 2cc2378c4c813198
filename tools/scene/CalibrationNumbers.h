#pragma once

#include <array>
#include <vector>

#include "tools/scene/StereoRig.h"

namespace scene {

/// One camera as the calibration files tell it.
struct CameraNumbers {
  int height = 0;
  int width = 0;
  /// Fx, Fy, Cx, Cy, K1 to K6, P1, P2. Fisheye: the four coefficients are K1 to K4.
  std::array<double, 12> intrinsics{};
  int poly_nx = 0;
  int poly_ny = 0;
  std::array<float, 500> poly_x{};  ///< Ten a cell, cells row by row; zeros behind the last cell.
  std::array<float, 500> poly_y{};
};

/// Fx, Fy, Cx, Cy and the lens, as the calibration files tell them.
std::array<double, 12> intrinsicsOf(const Camera& camera);

/// A stereo calibration in plain numbers, for tests that need no file.
struct CalibrationNumbers {
  CameraNumbers left;
  CameraNumbers right;
  std::array<double, 6> extrinsics{};  ///< RX, RY, RZ in radians, TX, TY, TZ in millimetres.
};

/// Precondition: tables of at most 50 cells.
CalibrationNumbers calibrationNumbers(const StereoRig& rig);

/// A rectified pair in five numbers: z = focal baseline / (x_right - x_left + disparity_offset).
struct RectifiedNumbers {
  double focal = 0.0;
  double baseline = 0.0;  ///< Signed: the right camera's T along x, negative when it stands to the right.
  double cx = 0.0;
  double cy = 0.0;
  double disparity_offset = 0.0;
};

/// Precondition: the cameras are pinholes of the same focal lengths and principal row, without rotation, shifted along
/// x only.
RectifiedNumbers rectifiedNumbers(const StereoRig& rig);

}  // namespace scene
