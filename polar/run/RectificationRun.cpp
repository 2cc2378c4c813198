#include <chrono>
#include <fstream>

#include "PolarLinePrecision/Status.h"
#include "platform/OutputFile.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/Summary.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"
#include "polar/run/RunTexts.h"
#include "polar/run/SecondLook.h"

namespace {

PairEvaluator makeRectifiedEvaluator(const PolarCore& core, const RectifiedGeometry& geometry) {
  PairEvaluator evaluator(core.config);
  evaluator.rectified = {static_cast<float>(geometry.focal), static_cast<float>(geometry.baseline),
                         static_cast<float>(geometry.cx), static_cast<float>(geometry.cy),
                         static_cast<float>(geometry.disparity_offset)};
  evaluator.boardPoints = geometry.boardPoints;
  // Rectified images have no lens and no camera matrix to compensate with, whatever the configuration says.
  evaluator.eccentricity = false;
  return evaluator;
}

PairStatus rowDisparity(const PairInput& pair, PairEvaluator& evaluator) {
  evaluator.seen.evaluation = "rows";
  float variance_x = 0.0F;
  float variance_y = 0.0F;
  return evaluator.CheckRowDisparity(pair, variance_x, variance_y);
}

PairStatus pointCloud(const PairInput& pair, PairEvaluator& evaluator) {
  evaluator.seen.evaluation = "cloud";
  std::vector<cv::Point2f> left_points;
  std::vector<cv::Point2f> right_points;
  std::vector<CloudPoint> cloud;
  return evaluator.CheckPointCloudGroups(pair, left_points, right_points, cloud);
}

// `oqc_switch` alone starts nothing: it only widens the inner condition.
PairStatus evaluateRectifiedPair(const PairInput& pair, PairEvaluator& evaluator) {
  const PolarConfig& config = evaluator.config();
  if (config.dy_bias_switch != 0) {
    const PairStatus status = rowDisparity(pair, evaluator);
    if (status != 0) return status;
  } else if (config.foursixmethod_swithch == 0) {
    return 0;
  }
  const bool needs_cloud =
      config.foursixmethod_swithch != 0 || config.allpointssavecsv_swithch != 0 || config.oqc_switch != 0;
  return needs_cloud ? pointCloud(pair, evaluator) : 0;
}

}  // namespace

std::int32_t PolarCore::RectificationRun(const RunArguments& arguments, const RectifiedGeometry& geometry) {
  files::OutputFile summary(summaryPath(*config, kRectifiedSummary));
  writeRectifiedHeader(summary, *config);
  PairEvaluator evaluator = makeRectifiedEvaluator(*this, geometry);
  if (!isStereoSet(*this, arguments)) return polar_status::kImages;
  const auto start = std::chrono::steady_clock::now();
  if (!reportProgress(*this, arguments.progress, run_texts::kRunBegunPercent)) return polar_status::kStoppedByCallback;

  PairEvaluation pairs = [&](std::size_t /*index*/, const PairInput& pair) {
    const PairStatus status = evaluateRectifiedPair(pair, evaluator);
    if (status == 0) return PairResult{};
    errorText = evaluator.errorText;
    return PairResult{PairOutcome::kGivenUp, status};
  };
  if (arguments.refiner != nullptr) {
    pairs = withSecondLook(pairs, *arguments.refiner, evaluator, {unwarped, evaluateRectifiedPair});
  }
  return walkPairs(*this, arguments, evaluator, summary, start, WalkRules{}, pairs);
}
