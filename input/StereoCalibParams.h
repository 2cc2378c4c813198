#pragma once

#include <array>
#include <cstdint>

#include "input/PolyTables.h"

/// One camera of a run.
struct CameraCalib {
  std::uint32_t height = 0;  ///< Image rows; known from a binary source only.
  std::uint32_t width = 0;   ///< Image columns; known from a binary source only.
  /// Fx, Fy, Cx, Cy, K1 to K6, P1, P2.
  std::array<double, 12> intrinsics{};
  std::uint8_t poly_nx = 0;  ///< Polynomial cells across; 0: no tables.
  std::uint8_t poly_ny = 0;  ///< Polynomial cells down; 0: no tables.
  PolyTable poly_x{};        ///< x coefficients, 10 a cell, cells row by row.
  PolyTable poly_y{};        ///< y coefficients, the same order.
};

/// The calibration of a run. The right camera comes first.
struct StereoCalibParams {
  CameraCalib right;
  CameraCalib left;
  /// RX, RY, RZ (radians), TX, TY, TZ: X_right = R X_left + T, R = Rz Rx Ry.
  std::array<double, 6> extrinsics{};
};

/// The camera of an index: 0 is left, 1 right. Null for any other.
inline const CameraCalib* cameraOf(const StereoCalibParams& calib, int camera_index) {
  if (camera_index == 0) return &calib.left;
  return camera_index == 1 ? &calib.right : nullptr;
}
