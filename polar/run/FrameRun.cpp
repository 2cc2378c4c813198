#include <chrono>
#include <fstream>
#include <string>

#include "PolarLinePrecision/Status.h"
#include "camera/BrownCamera.h"
#include "platform/OutputFile.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/Summary.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"
#include "polar/run/RunCameras.h"
#include "polar/run/RunTexts.h"
#include "polar/run/SecondLook.h"

std::int32_t PolarCore::FrameRun(const RunArguments& arguments, const StereoCalibParams& calib) {
  const std::string summary_name = summaryPath(*config, kFrameSummary);
  files::OutputFile summary(summary_name);
  if (!summary_name.empty()) writeFrameHeader(summary, *config);
  if (!loadRunCameras(*this, calib)) {
    errorText = run_texts::kReadImageError;  // Not the text of the image-set run: callers of frame runs know this one.
    return polar_status::kPolyTables;
  }
  PairEvaluator evaluator = makeEvaluator(*this);
  if (!isStereoSet(*this, arguments)) return polar_status::kImages;
  const auto start = std::chrono::steady_clock::now();
  if (!reportProgress(*this, arguments.progress, run_texts::kRunBegunPercent)) return polar_status::kStoppedByCallback;

  // Without tables a Brown camera of that side takes the place of the polynomial one, so that the evaluation goes one
  // way for both.
  const BrownCamera left_brown(left_dist);
  const BrownCamera right_brown(right_dist);
  const bool poly = lensModel() == LensModel::kPoly;
  const CameraIntrinsicsBase& left_object = poly ? static_cast<const CameraIntrinsicsBase&>(left_camera) : left_brown;
  const CameraIntrinsicsBase& right_object =
      poly ? static_cast<const CameraIntrinsicsBase&>(right_camera) : right_brown;

  const auto evaluate = [&](const PairInput& raw, PairEvaluator& by) {
    by.seen.evaluation = "frame";
    return by.CalFramePrecision(raw, left_object, right_object);
  };
  PairEvaluation frames = [&](std::size_t /*index*/, const PairInput& raw) {
    evaluate(raw, evaluator);
    return PairResult{};  // A failing frame still makes a record, a row and a report.
  };
  if (arguments.refiner != nullptr) {
    frames = withSecondLook(frames, *arguments.refiner, evaluator, {unwarped, evaluate});
  }
  const WalkRules rules{.counts_given_up = false, .writes_every_row = true};
  return walkPairs(*this, arguments, evaluator, summary, start, rules, frames);
}
