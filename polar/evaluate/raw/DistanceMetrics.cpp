#include "polar/evaluate/raw/DistanceMetrics.h"

#include <limits>
#include <string>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/evaluate/raw/BoardFit.h"
#include "polar/evaluate/raw/GroundTruthDistances.h"
#include "polar/geometry/OutlierSearch.h"
#include "polar/geometry/PairTriangulation.h"

namespace {

DistanceRules brownRules() {
  return {true, std::numeric_limits<double>::infinity(), true, {cv::Point3f(0.0F, 0.0F, 0.0F), 0, false}};
}

DistanceRules polyRules() { return {false, 5.0, false, {cv::Point3f(10.0F, 10.0F, 10.0F), 30, true}}; }

bool passesResidual(PairEvaluator& evaluator, const MeasuredPair& pair, TriangulatedPair& triangulated) {
  std::vector<float> errors;
  if (!evaluator.CheckResidual(pair.right_points, triangulated.predicted_right, errors)) return false;
  for (std::size_t i = 0; i < triangulated.records.size(); ++i) triangulated.records[i].right_err = errors[i];
  return true;
}

std::vector<cv::Point3f> trueBoard(const PairEvaluator& evaluator, const std::vector<PairPointRecord>& records) {
  std::vector<cv::Point3f> truth;
  truth.reserve(records.size());
  for (const PairPointRecord& record : records) {
    truth.push_back(evaluator.boardPoints.at(static_cast<std::size_t>(record.id)));
  }
  return truth;
}

PairStatus searchOutlier(PairEvaluator& evaluator, std::vector<double> distances) {
  for (double& distance : distances) distance *= 1000;
  const auto outlier = findOutlier(distances);
  if (!outlier) return polar_status::kSuccess;
  const std::string id = std::to_string(evaluator.pairPoints[*outlier].id);
  console::line("**********find maximum outlier**********\n", id);
  evaluator.errorText = "Failed in board check!Find outlier id: " + id +
                        ";total num of detect points: " + std::to_string(evaluator.pairPoints.size());
  return polar_status::kOutlier;
}

/// The records move into the evaluator at the start, so that the lists of two pairs are never held at once.
PairStatus compareWithBoard(PairEvaluator& evaluator, std::vector<PairPointRecord>&& records,
                            const CameraPairModel& model, const DistanceRules& rules) {
  const std::vector<cv::Point3f> truth = trueBoard(evaluator, records);
  evaluator.pairPoints = std::move(records);
  std::vector<double> distances;
  {
    DistanceTables tables(evaluator, rules.board_check_table);
    evaluateDistances(evaluator, evaluator.pairPoints, truth, tables);
    distances = fitAndProject(evaluator, evaluator.pairPoints, truth, model, tables);
  }
  evaluator.gt_rms = projectionRms(distances, rules.projection_limit);
  console::line("gt_rms:", evaluator.gt_rms);
  return rules.outlier_search ? searchOutlier(evaluator, std::move(distances)) : polar_status::kSuccess;
}

}  // namespace

PairStatus evaluateRawPair(PairEvaluator& evaluator, const RawPair& pair, const EvaluationCameras& cameras,
                           const CameraPairModel& model, const DistanceRules& rules) {
  const PolarConfig& config = evaluator.config();
  evaluator.eval_left_K = cameras.left_K.clone();
  evaluator.eval_right_K = cameras.right_K.clone();
  MeasuredPair measured;
  const PairStatus status =
      evaluator.measure(pair.evalu_model, pair.targetConfigPath, pair.left_image, pair.right_image, measured);
  if (status != polar_status::kSuccess) return status;
  if (!evaluator.enoughShared(measured, kLeastSharedRaw)) return polar_status::kTooFewShared;

  console::useFixedNotation();
  TriangulatedPair triangulated = triangulateShared(measured, cameras, model);
  evaluator.residual_image = pair.right_image.clone();
  if (config.triangulate_residual_switch != 0 && !passesResidual(evaluator, measured, triangulated)) {
    return polar_status::kTooFewShared;
  }
  if (config.discalswitch && evaluator.boardPoints.size() >= kLeastBoardPoints) {
    const PairStatus compared = compareWithBoard(evaluator, std::move(triangulated.records), model, rules);
    if (compared != polar_status::kSuccess) return compared;
  }
  if (config.triangulate_dis_switch == 0) return polar_status::kSuccess;
  return evaluateFoursix(evaluator, measured, triangulated.points_left, rules.foursix);
}

PairStatus PairEvaluator::CalTriangulateRepBrown(const std::int32_t& evalu_model, const char* targetConfigPath,
                                                 const cv::Mat& left_image, const cv::Mat& right_image,
                                                 const EvaluationCameras& cameras) {
  const BrownPairModel model(left_dist, right_dist);
  return evaluateRawPair(*this, {evalu_model, targetConfigPath, left_image, right_image}, cameras, model, brownRules());
}

PairStatus PairEvaluator::CalTriangulateRepPOLY(const std::int32_t& evalu_model, const char* targetConfigPath,
                                                const cv::Mat& left_image, const cv::Mat& right_image,
                                                const EvaluationCameras& cameras,
                                                const CameraIntrinsicsBase& left_camera,
                                                const CameraIntrinsicsBase& right_camera) {
  const ObjectPairModel model(left_camera, right_camera);
  return evaluateRawPair(*this, {evalu_model, targetConfigPath, left_image, right_image}, cameras, model, polyRules());
}
