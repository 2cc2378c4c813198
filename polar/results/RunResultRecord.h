#pragma once

#include <vector>

#include "PolarLinePrecision/ResultRecords.h"
#include "polar/evaluate/PairEvaluator.h"

/// The figures of one finished pair as the run keeps them: as the caller gets them, but for the points, which carry
/// more here, and `gt_rms`, which is still in single precision.
struct RunResultRecord {
  double tri_mean = 0.0, tri_min = 0.0, tri_max = 0.0, tri_rms = 0.0;
  std::array<double, 8> tri_dis{};
  double dy_means = 0.0, dy_min = 0.0, dy_max = 0.0;
  std::array<double, 8> pol_dis{};
  std::vector<double> id_dis;
  double dis_rms = 0.0, nor_rms = 0.0;
  cv::Mat detect_canvas;
  double zero_dis = 0.0;
  std::array<double, 8> PoseReport{};
  std::vector<PairPointRecord> pairPoints;
  float icp_x_rms = 0.0F, icp_y_rms = 0.0F, icp_z_rms = 0.0F, icp_nor_rms = 0.0F;
  std::vector<double> frameValues;
  float gt_rms = 0.0F;
  double space_rms = 0.0;
};
