#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/results/PairDistances.h"
#include "polar/results/PairRecords.h"

/// Figures that come together: all of a group are measured, or none.
enum class FigureGroup : std::uint8_t {
  kResiduals,  ///< tri_mean and its like
  kTriDis,
  kRows,  ///< dy_means and its like
  kPolDis,
  kSpacing,  ///< allpoints_means and its like
  kIdDis,
  kDistances,   ///< dis_rms, nor_rms, zero_dis and the shared points
  kAlignment,   ///< icp_x_rms and its like
  kProjection,  ///< gt_rms
  kPose,
  kFrame,
  kSpace,
  kPicture,
};
inline constexpr std::size_t kFigureGroups = 13;

/// The figures of a pair as they are measured, before they widen on their way to the caller. What each means, where it
/// is written and under which switch stands in `FigureList.h`. A figure keeps its value until an evaluation that comes
/// to its end replaces it.
struct PairFigures {
  float tri_mean = 0.0F, tri_min = 0.0F, tri_max = 0.0F, tri_rms = 0.0F;
  float tri_ratio = 0.0F;  ///< Share of residuals below `tri_bias_divid`. Nothing reads it: it reaches no output.
  std::array<float, 8> tri_dis{};
  float dy_means = 0.0F, dy_min = 0.0F, dy_max = 0.0F;
  float dy_variance = 0.0F;  ///< Variance of the absolute row differences. Nothing reads it: it reaches no output.
  float dy_ratio = 0.0F;
  std::array<float, 8> pol_dis{};
  float allpoints_means = 0.0F, allpoints_min = 0.0F, allpoint_max = 0.0F;
  std::vector<double> id_dis;
  float dis_rms = 0.0F, nor_rms = 0.0F, zero_dis = 0.0F;
  cv::Mat detect_canvas;
  std::array<float, 8> PoseReport{};
  std::vector<PairPointRecord> pairPoints;
  /// Between those points; null where none was compared with the board's. Nobody changes them: the record of a pair
  /// shares them with the figures.
  std::shared_ptr<const PairDistances> distances;
  float icp_x_rms = 0.0F, icp_y_rms = 0.0F, icp_z_rms = 0.0F, icp_nor_rms = 0.0F;
  std::vector<double> frameValues;
  float gt_rms = 0.0F;
  double space_rms = 0.0;

  /// The groups that the current pair measured itself; the values of the others are of an earlier pair, or none.
  std::bitset<kFigureGroups> measured;
  void setMeasured(FigureGroup group) { measured.set(static_cast<std::size_t>(group)); }
  bool isMeasured(FigureGroup group) const { return measured.test(static_cast<std::size_t>(group)); }
};
