#include "polar/results/ResultRecords.h"

#include <algorithm>
#include <utility>

namespace {

std::array<double, 8> widened(const std::array<float, 8>& values) {
  std::array<double, 8> wide{};
  std::copy(values.begin(), values.end(), wide.begin());
  return wide;
}

/// Uses the point up: its lists move on, or go.
TriPointRecord takeCallerForm(PairPointRecord& point) {
  TriPointRecord record;
  record.id = point.id;
  record.left_x = point.left_x;
  record.left_y = point.left_y;
  record.right_x = point.right_x;
  record.right_y = point.right_y;
  record.x = point.x;
  record.y = point.y;
  record.z = point.z;
  record.dis_errors = std::move(point.dis_errors);
  // The relative errors stay behind; freeing them here keeps the peak at one list of distances a point.
  point.nor_errors = {};
  record.dis_rms = point.dis_rms;
  return record;
}

PolarResultRecord callerForm(RunResultRecord&& run) {
  PolarResultRecord record;
  record.tri_mean = run.tri_mean;
  record.tri_min = run.tri_min;
  record.tri_max = run.tri_max;
  record.tri_rms = run.tri_rms;
  record.tri_dis = run.tri_dis;
  record.dy_means = run.dy_means;
  record.dy_min = run.dy_min;
  record.dy_max = run.dy_max;
  record.pol_dis = run.pol_dis;
  record.id_dis = std::move(run.id_dis);
  record.dis_rms = run.dis_rms;
  record.nor_rms = run.nor_rms;
  record.detect_canvas = std::move(run.detect_canvas);
  record.zero_dis = run.zero_dis;
  record.PoseReport = run.PoseReport;
  record.pairPoints.reserve(run.pairPoints.size());
  for (PairPointRecord& point : run.pairPoints) {
    record.pairPoints.push_back(takeCallerForm(point));
  }
  record.icp_x_rms = run.icp_x_rms;
  record.icp_y_rms = run.icp_y_rms;
  record.icp_z_rms = run.icp_z_rms;
  record.icp_nor_rms = run.icp_nor_rms;
  record.frameValues = std::move(run.frameValues);
  record.gt_rms = static_cast<double>(run.gt_rms);
  record.space_rms = run.space_rms;
  return record;
}

}  // namespace

void FillResultRecord(const PairEvaluator& evaluator, RunResultRecord& record) {
  record.tri_mean = evaluator.tri_mean;
  record.tri_min = evaluator.tri_min;
  record.tri_max = evaluator.tri_max;
  record.tri_rms = evaluator.tri_rms;
  record.tri_dis = widened(evaluator.tri_dis);
  record.dy_means = evaluator.dy_means;
  record.dy_min = evaluator.dy_min;
  record.dy_max = evaluator.dy_max;
  record.pol_dis = widened(evaluator.pol_dis);
  record.id_dis = evaluator.id_dis;
  record.dis_rms = evaluator.dis_rms;
  record.nor_rms = evaluator.nor_rms;
  record.detect_canvas = evaluator.detect_canvas.clone();
  record.zero_dis = evaluator.zero_dis;
  record.PoseReport = widened(evaluator.PoseReport);
  record.pairPoints = evaluator.pairPoints;
  record.icp_x_rms = evaluator.icp_x_rms;
  record.icp_y_rms = evaluator.icp_y_rms;
  record.icp_z_rms = evaluator.icp_z_rms;
  record.icp_nor_rms = evaluator.icp_nor_rms;
  record.frameValues = evaluator.frameValues;
  record.gt_rms = evaluator.gt_rms;
  record.space_rms = evaluator.space_rms;
}

int ExportResults(std::vector<RunResultRecord>&& records, std::vector<PolarResultRecord>& results) {
  results.clear();
  results.reserve(records.size());
  for (RunResultRecord& record : records) results.push_back(callerForm(std::move(record)));
  records.clear();
  return 0;
}
