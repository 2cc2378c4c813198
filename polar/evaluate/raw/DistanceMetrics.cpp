#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/BoardFit.h"
#include "polar/evaluate/raw/CountedErrors.h"
#include "polar/evaluate/raw/FoursixStep.h"
#include "polar/evaluate/raw/GroundTruthDistances.h"
#include "polar/geometry/OutlierSearch.h"
#include "polar/geometry/PairTriangulation.h"

namespace {

/// Where the distance evaluations of the two lens models part.
struct DistanceRules {
  bool board_check_table = false;  ///< Write the figures of each point to the board check table.
  double projection_limit = 0.0;   ///< Distances of the fitted board above this are left out of `gt_rms`, pixels.
  bool outlier_search = false;     ///< A point that stands out from the fit ends the evaluation.
  FoursixRules foursix;
};

// That the two differ is meant, in each point.
DistanceRules brownRules() {
  return {.board_check_table = true,
          .projection_limit = std::numeric_limits<double>::infinity(),
          .outlier_search = true,
          .foursix = {.initial = {0.0F, 0.0F, 0.0F}, .missing_sum = 0, .replaces_implausible = false}};
}

DistanceRules polyRules() {
  constexpr float kUnfound = 10.0F;  // Failed points stand at the origin, so points that are not there stand elsewhere.
  return {.board_check_table = false,
          .projection_limit = kLargestProjectionError,
          .outlier_search = false,
          .foursix = {.initial = {kUnfound, kUnfound, kUnfound},
                      .missing_sum = static_cast<std::int32_t>(3 * kUnfound),
                      .replaces_implausible = true}};
}

bool passesResidual(PairEvaluator& evaluator, const cv::Mat& right_image, const MeasuredPair& pair,
                    TriangulatedPair& triangulated) {
  std::vector<float> errors;
  if (!evaluator.CheckResidual(right_image, pair.right_points, triangulated.predicted_right, errors)) return false;
  for (std::size_t i = 0; i < triangulated.records.size(); ++i) triangulated.records[i].right_err = errors[i];
  evaluator.seen.residuals = std::move(errors);
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
  constexpr double kThousandths = 1000.0;  // The search drops fractions, so it looks at thousandths of a pixel.
  for (double& distance : distances) distance *= kThousandths;
  const auto outlier = findOutlier(distances);
  if (!outlier) return polar_status::kSuccess;
  const std::string id = std::to_string(evaluator.figures.pairPoints[*outlier].id);
  console::line("**********find maximum outlier**********\n", id);
  evaluator.errorText = "Failed in board check!Find outlier id: " + id +
                        ";total num of detect points: " + std::to_string(evaluator.figures.pairPoints.size());
  return polar_status::kOutlier;
}

/// The records move into the evaluator at the start, so that the distances of two pairs are never held at once.
PairStatus compareWithBoard(PairEvaluator& evaluator, std::vector<PairPointRecord>&& records, const cv::Mat& left_K,
                            const CameraPairModel& model, const DistanceRules& rules) {
  const std::vector<cv::Point3f> truth = trueBoard(evaluator, records);
  evaluator.figures.pairPoints = std::move(records);
  evaluator.figures.distances.reset();
  std::vector<double> distances;
  {
    DistanceTables tables(evaluator, rules.board_check_table);
    evaluateDistances(evaluator.figures, truth, tables);
    distances = fitAndProject(evaluator.figures, truth, {left_K, model}, tables, &evaluator.seen.fitted_left);
  }
  evaluator.figures.gt_rms = projectionRms(distances, rules.projection_limit);
  evaluator.figures.setMeasured(FigureGroup::kProjection);
  console::line("gt_rms:", evaluator.figures.gt_rms);
  return rules.outlier_search ? searchOutlier(evaluator, std::move(distances)) : polar_status::kSuccess;
}

/// Measures and triangulates a raw pair and judges it by its residuals, by the board's true distances and by the six
/// distances of four points, each under its switch.
PairStatus evaluateRawPair(PairEvaluator& evaluator, const PairInput& raw, const CameraPairModel& model,
                           const DistanceRules& rules) {
  const PolarConfig& config = evaluator.config();
  MeasuredPair measured;
  const PairStatus status = evaluator.measure(raw, measured);
  if (status != polar_status::kSuccess) return status;
  if (!evaluator.enoughShared(measured, kLeastSharedRaw)) return polar_status::kTooFewShared;

  console::useFixedNotation();
  TriangulatedPair triangulated = triangulateShared(measured, raw.cameras, model);
  evaluator.seen.raw = sharedDots(measured);
  evaluator.seen.positions = triangulated.points_left;
  evaluator.seen.predicted_right = triangulated.predicted_right;
  evaluator.seen.cameras = seenCameras(raw.cameras);
  if (config.triangulate_residual_switch != 0 && !passesResidual(evaluator, raw.right_image, measured, triangulated)) {
    return polar_status::kTooFewShared;
  }
  if (config.discalswitch && evaluator.boardPoints.size() >= kLeastBoardPoints) {
    const PairStatus compared =
        compareWithBoard(evaluator, std::move(triangulated.records), raw.cameras.left_K, model, rules);
    if (compared != polar_status::kSuccess) return compared;
  }
  if (config.triangulate_dis_switch == 0) return polar_status::kSuccess;
  return evaluateFoursix(evaluator, measured, triangulated.points_left, rules.foursix);
}

}  // namespace

PairStatus PairEvaluator::CalTriangulateRepBrown(const PairInput& raw) {
  return evaluateRawPair(*this, raw, BrownPairModel(left_dist, right_dist), brownRules());
}

PairStatus PairEvaluator::CalTriangulateRepPOLY(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                                                const CameraIntrinsicsBase& right_camera) {
  return evaluateRawPair(*this, raw, ObjectPairModel(left_camera, right_camera), polyRules());
}
