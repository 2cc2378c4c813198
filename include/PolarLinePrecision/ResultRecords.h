#pragma once

#include <array>
#include <cstdint>
#include <opencv2/core.hpp>
#include <utility>
#include <vector>

/// One measured board point of a pair. Pixels have their centres on integers; coordinates are in the left camera's
/// frame and the board's unit.
struct TriPointRecord {
  std::int32_t id = 0;  ///< Board id, row * columns + column (in a frame run: the frame id).
  float left_x = 0.0F;  ///< Measured left pixel.
  float left_y = 0.0F;
  float right_x = 0.0F;  ///< Measured right pixel.
  float right_y = 0.0F;
  float x = 0.0F;  ///< Triangulated point.
  float y = 0.0F;
  float z = 0.0F;
  /// Id of each other point and the signed error of the distance to it, measured less true.
  std::vector<std::pair<std::int32_t, float>> dis_errors;
  float dis_rms = 0.0F;  ///< Root mean square of `dis_errors`.
};

/// The figures of one finished pair. A figure whose evaluation is switched off, or did not come to its end, keeps the
/// value of the pair before, 0 at the start of a run.
struct PolarResultRecord {
  double tri_mean = 0.0;  ///< Reprojection residual in the right image, pixels: mean.
  double tri_min = 0.0;   ///< Smallest residual.
  double tri_max = 0.0;   ///< Largest residual.
  double tri_rms = 0.0;   ///< Root mean square of the residuals.
  /// Errors of the triangulated distances of the four `TriPoint`s: 1-2, 1-3, 2-4, 3-4, 1-4, 2-3, then the one of
  /// smallest and the one of largest absolute value. Board unit.
  std::array<double, 8> tri_dis{};
  double dy_means = 0.0;            ///< Mean absolute row difference after rectification, pixels.
  double dy_min = 0.0;              ///< Smallest absolute row difference.
  double dy_max = 0.0;              ///< Largest absolute row difference.
  std::array<double, 8> pol_dis{};  ///< As `tri_dis`, for the `PolPoint`s of the point cloud of the rectified pair.
  std::vector<double> id_dis;       ///< Distance error of each `Cal_ID_DIS` entry, board unit.
  double dis_rms = 0.0;             ///< Root mean square of all distance errors against the board, board unit.
  double nor_rms = 0.0;             ///< The same for the errors divided by the true distances.
  cv::Mat detect_canvas;            ///< Both images side by side with the marked points, BGR; the record's own pixels.
  double zero_dis = 0.0;            ///< Mean range of the board points from the left camera, board unit.
  /// Left rotation vector x, y, z (degrees) and distance of the board's centre, then the same for the right camera.
  std::array<double, 8> PoseReport{};
  /// The shared points, in ascending id; filled by the distance evaluation and by frame runs.
  std::vector<TriPointRecord> pairPoints;
  float icp_x_rms = 0.0F;  ///< Residual of the rigid fit of the board to the measured points along x, board unit.
  float icp_y_rms = 0.0F;
  float icp_z_rms = 0.0F;
  float icp_nor_rms = 0.0F;         ///< Root of the mean squared distance of that fit.
  std::vector<double> frameValues;  ///< Distance error of each `Frame_ID_DIS` entry.
  double gt_rms = 0.0;              ///< Reprojection error of the fitted board in the left image, pixels.
  double space_rms = 0.0;           ///< Residual of the rigid fit of the measured points onto the board, board unit.
};
