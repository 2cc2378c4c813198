#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// All switches and reference points of a run. The fields bear their keys' names; a key that the text lacks leaves its
/// field at the value here.
struct PolarConfig {
  /// Lens model: 0 five-coefficient Brown, 1 eight-coefficient Brown, 2 fisheye, 3 POLY tables, other values none.
  std::int32_t type = 0;
  std::int32_t x_y = 0;            ///< 1: turn both rectified images a quarter clockwise before they are compared.
  std::int32_t evaluation = 0;     ///< 1: write the run's summary file; any non-zero value forms its rows.
  std::int32_t savepolarline = 0;  ///< Non-zero: save the rectified pair and its picture with polar lines.
  std::int32_t evalu_model = 0;    ///< 0: full measurement; 1: detection only.
  std::int32_t crop = 0;           ///< Non-zero: centre crop.
  std::int32_t cropped_cols = 0;   ///< Columns of the crop, pixels.
  std::int32_t cropped_rows = 0;   ///< Rows of the crop, pixels.
  float f_scale = 1.0F;  ///< Scale of the rectified focal length; exactly 1 selects the library's own rectification.
  std::int32_t allpoints_calc_switch = 0;        ///< Spacing of all points of the cloud.
  std::int32_t foursixmethod_swithch = 0;        ///< Six distances of the four `PolPoint`s in the cloud.
  std::int32_t triangulate_residual_switch = 0;  ///< Residual of the triangulation in the right image.
  std::int32_t triangulate_dis_switch = 0;       ///< Six distances of the four triangulated `TriPoint`s.
  bool eccentricity = false;                     ///< Compensate the eccentricity of the imaged dots' centres.
  bool discalswitch = false;                     ///< Distances to the board's ground truth.
  bool discalsave = false;                    ///< A failed triangulation ends the run; the distance tables are written.
  std::int32_t dy_bias_switch = 0;            ///< Row differences of the rectified pair.
  std::int32_t tir_bias_savecsv_swithch = 0;  ///< Table of the triangulation residuals.
  std::int32_t allpointssavecsv_swithch = 0;  ///< Table of the point cloud.
  std::int32_t dy_bias_savecsv_swithch = 0;   ///< Table of the row differences.
  std::int32_t tri_bias_savepng_swithch = 0;  ///< Picture of the triangulation residuals.
  std::int32_t dy_bias_savepng_swithch = 0;   ///< Picture of the row differences.
  std::int32_t pattern_rows = 0;              ///< Not read: configurations carry it.
  std::int32_t pattern_cols = 0;              ///< Board columns of the all-points spacing.
  float pattern_step = 0.0F;                  ///< True spacing, board unit.
  float dy_bias_divid = 0.0F;                 ///< Limit of a row difference, pixels.
  float tri_bias_divid = 0.0F;                ///< Limit of a residual, pixels.
  std::int32_t TriPoint1_ID = 0;              ///< Board ids of the four triangulated points.
  std::int32_t TriPoint2_ID = 0;
  std::int32_t TriPoint3_ID = 0;
  std::int32_t TriPoint4_ID = 0;
  std::int32_t PolPoint1_ID = 0;  ///< Board ids of the four points of the cloud.
  std::int32_t PolPoint2_ID = 0;
  std::int32_t PolPoint3_ID = 0;
  std::int32_t PolPoint4_ID = 0;
  std::string result_folder;         ///< Where results go; empty: nothing is written. Not a key of the text.
  std::vector<double> TriPoint1_GT;  ///< True x, y, z of the four triangulated points.
  std::vector<double> TriPoint2_GT;
  std::vector<double> TriPoint3_GT;
  std::vector<double> TriPoint4_GT;
  std::vector<double> PolPoint1_GT;  ///< True x, y, z of the four points of the cloud.
  std::vector<double> PolPoint2_GT;
  std::vector<double> PolPoint3_GT;
  std::vector<double> PolPoint4_GT;
  std::vector<std::vector<std::int32_t>> Cal_ID_DIS;    ///< Pairs of ids whose distance is checked.
  std::int32_t oqc_switch = 0;                          ///< Distances of `Cal_ID_DIS`.
  std::int32_t frame_work = 0;                          ///< Non-zero: frame run.
  std::vector<std::vector<double>> Frame_3D;            ///< True x, y, z of the frame points, index id - 1.
  std::vector<std::int32_t> Frame_ID;                   ///< Ids of the frame points.
  std::vector<std::vector<double>> Frame_IRL;           ///< Expected left pixels.
  std::vector<std::vector<double>> Frame_IRR;           ///< Expected right pixels.
  std::vector<std::vector<std::int32_t>> Frame_ID_DIS;  ///< Pairs of frame ids whose distance is judged.
  bool spaceRms_switch = true;                          ///< Board check.
};
