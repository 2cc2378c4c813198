#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"

/// One camera as a caller holds it.
struct ExportedCameraCalib {
  double height = 0.0;  ///< Image rows, pixels.
  double width = 0.0;   ///< Image columns, pixels.
  /// Fx, Fy, Cx, Cy (pixels), K1 to K6, P1, P2 (rational Brown model, Brown 1966; the first four K serve the fisheye
  /// model of Kannala and Brandt 2006).
  std::array<double, 12> intrinsics{};
  std::uint8_t poly_nx = 0;  ///< Polynomial cells across; 0: no tables. A grid of more than 50 cells counts as none.
  std::uint8_t poly_ny = 0;  ///< Polynomial cells down; 0: no tables.
  std::array<float, 500> poly_x{};  ///< x corrections, 10 coefficients a cell, cells row by row.
  std::array<float, 500> poly_y{};  ///< y corrections, the same order.
};

/// A calibrated stereo pair as a caller holds it: left first.
struct ExportedCalibParams {
  ExportedCameraCalib left;
  ExportedCameraCalib right;
  /// RX, RY, RZ in radians, TX, TY, TZ in the board's unit: X_right = R X_left + T with R = Rz Rx Ry.
  std::array<double, 6> extrinsics{};
  /// Filled by the caller; may be empty, then every step that needs it stays silent.
  BoardGroundTruth boardPoints;
};

/// Geometry of images that were rectified outside the library.
struct RectifiedParams {
  double focal = 0.0;                    ///< Rectified focal length, pixels.
  double baseline = 0.0;                 ///< Baseline in the board's unit; its sign goes with that of right.x - left.x.
  double cx = 0.0;                       ///< Rectified principal point, pixels.
  double cy = 0.0;                       ///< Rectified principal point, pixels.
  double disparity_offset = 0.0;         ///< Added to the column difference right - left, pixels.
  std::vector<cv::Point3d> boardPoints;  ///< True positions of the dots by id, board unit.
};

/// One camera of a binary calibration file.
struct MultiCalibrationEntry {
  std::uint32_t value = 0;             ///< Copied through, not used.
  std::uint32_t height = 0;            ///< Image rows.
  std::uint32_t width = 0;             ///< Image columns.
  std::array<float, 12> parameters{};  ///< Fx, Fy, Cx, Cy (pixels), then the model's coefficients, the rest 0.
  std::array<std::uint8_t, 2016>
      table_block{};  ///< Grid width and height, then 80 bytes a cell: 10 x floats, 10 y floats.
  std::array<float, 6>
      extrinsics{};  ///< Rotation x, y, z (radians), translation x, y, z (board unit); 0 where the file has none.
  std::string camera_name;  ///< As in the file.
};

/// Content of a binary calibration file.
struct MultiCalibration {
  std::uint8_t last_byte = 0;             ///< File offset 49.
  std::uint8_t fourth_byte = 0;           ///< File offset 47.
  std::vector<std::string> camera_names;  ///< In the order of the file.
  std::uint32_t value = 0;                ///< File offset 43.
  std::vector<std::string> model_names;   ///< `Brown`, `KB`, `DS` or `MEI`, in the order of the file.
  std::int32_t model_code = 0;            ///< 1 Brown, 2 KB, 3 DS, 4 MEI when all cameras have that model, otherwise 0.
  std::vector<MultiCalibrationEntry> entries;
  std::string long_text;         ///< File offset 11.
  std::uint8_t n = 0;            ///< Number of cameras.
  std::uint8_t format_byte = 0;  ///< File offset 0.
  std::string short_text;        ///< File offset 1.
};
