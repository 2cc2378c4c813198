#include <chrono>
#include <string>

#include "PolarLinePrecision/Status.h"
#include "platform/Files.h"
#include "polar/results/SummaryFile.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"

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

PairStatus rowDisparity(const PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator) {
  float variance_x = 0.0F;
  float variance_y = 0.0F;
  return evaluator.CheckRowDisparity(arguments.evalu_model, arguments.targetConfigPath.c_str(), core.left_image,
                                     core.right_image, variance_x, variance_y);
}

PairStatus pointCloud(const PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator) {
  std::vector<cv::Point2f> left_points;
  std::vector<cv::Point2f> right_points;
  std::vector<CloudPoint> cloud;
  return evaluator.CheckPointCloudGroups(arguments.evalu_model, arguments.targetConfigPath.c_str(), core.left_image,
                                         core.right_image, core.Q, left_points, right_points, cloud);
}

// `oqc_switch` alone starts nothing: it only widens the inner condition.
PairStatus evaluatePair(const PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator) {
  const PolarConfig& config = *core.config;
  if (config.dy_bias_switch != 0) {
    const PairStatus status = rowDisparity(core, arguments, evaluator);
    if (status != 0) return status;
  } else if (config.foursixmethod_swithch == 0) {
    return 0;
  }
  const bool needs_cloud =
      config.foursixmethod_swithch != 0 || config.allpointssavecsv_swithch != 0 || config.oqc_switch != 0;
  return needs_cloud ? pointCloud(core, arguments, evaluator) : 0;
}

}  // namespace

std::int32_t PolarCore::RectificationRun(const RunArguments& arguments, const RectifiedGeometry& geometry) {
  std::ofstream summary =
      files::openOutput(summaryPath(*config, arguments.evaluation, std::string(kSummaryStem) + ".csv"));
  writeSummaryHeader(summary, *config, false);
  PairEvaluator evaluator = makeRectifiedEvaluator(*this, geometry);
  if (!isStereoSet(*this, arguments.images)) return polar_status::kImages;
  const auto start = std::chrono::steady_clock::now();
  if (!reportProgress(*this, arguments.progress, 0.003F)) return polar_status::kStoppedByCallback;

  return walkPairs(*this, arguments, evaluator, summary, start, WalkRules{}, [&](std::size_t /*index*/) {
    if (evaluatePair(*this, arguments, evaluator) == 0) return PairResult{};
    errorText = evaluator.errorText;
    return PairResult{PairOutcome::kGivenUp, 0};
  });
}
