#include "polar/run/PairWalk.h"

#include <string>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/results/ResultRecords.h"
#include "polar/results/ResultRow.h"
#include "polar/run/RunTexts.h"
#include "polar/run/TimedLine.h"

namespace {

// The matrices live for the run while every image arrives uncropped, so the shift adds up over the set. That is meant.
void cropToCentre(cv::Mat& image, cv::Mat& K, const RunArguments& arguments) {
  CV_CheckGT(arguments.cropped_cols, 0, "cropped_cols must be positive");
  CV_CheckGT(arguments.cropped_rows, 0, "cropped_rows must be positive");
  CV_CheckLE(arguments.cropped_cols, image.cols, "cropped_cols must not exceed the image's columns");
  CV_CheckLE(arguments.cropped_rows, image.rows, "cropped_rows must not exceed the image's rows");
  const int dx = (image.cols - arguments.cropped_cols) / 2;
  const int dy = (image.rows - arguments.cropped_rows) / 2;
  if (!K.empty()) {
    K.at<double>(0, 2) -= dx;
    K.at<double>(1, 2) -= dy;
  }
  image = image(cv::Rect(dx, dy, arguments.cropped_cols, arguments.cropped_rows)).clone();
}

std::int32_t failOnImages(PolarCore& core) {
  core.errorText = kReadImageError;
  return polar_status::kImages;
}

bool takePair(PolarCore& core, const RunArguments& arguments, std::size_t index) {
  core.left_image = arguments.images[0][index];
  core.right_image = arguments.images[1].at(index);
  if (core.left_image.empty() || core.right_image.empty()) {
    console::line("The image is empty!");
    return false;
  }
  if (arguments.crop != 0) {
    cropToCentre(core.left_image, core.left.K, arguments);
    cropToCentre(core.right_image, core.right.K, arguments);
  }
  return true;
}

}  // namespace

bool isStereoSet(PolarCore& core, const ImagePairList& images) {
  if (images.size() == 2) return true;
  failOnImages(core);
  return false;
}

bool reportProgress(PolarCore& core, const ProgressCallback* progress, float percentage) {
  if (progress == nullptr || (*progress)(percentage)) return true;
  core.errorText = "Callback Terminated!";
  return false;
}

std::int32_t walkPairs(PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator, std::ostream& summary,
                       std::chrono::steady_clock::time_point start, const WalkRules& rules,
                       const std::function<PairResult(std::size_t index)>& evaluate) {
  const std::size_t pairs = arguments.images[0].size();
  const float step = 99.0F / static_cast<float>(pairs);
  std::int32_t pair_count = 0;
  for (std::size_t index = 0; index < pairs; ++index) {
    evaluator.image_id = pair_count;
    if (!takePair(core, arguments, index)) return failOnImages(core);
    const PairResult result = evaluate(index);
    if (result.outcome == PairOutcome::kEndRun) return result.status;
    if (result.outcome == PairOutcome::kGivenUp) {
      pair_count += rules.counts_given_up ? 1 : 0;
      continue;
    }
    if (rules.releases_images) {
      core.left_image.release();
      core.right_image.release();
    }
    ++pair_count;
    const float percentage = static_cast<float>(pair_count) * step + 0.003F;
    printTimedLine("--------LoadImageFrames ------" + std::to_string(pair_count), start, percentage);
    if (!reportProgress(core, arguments.progress, percentage)) return polar_status::kStoppedByCallback;
    FillResultRecord(evaluator, core.records.emplace_back());
    if (rules.writes_every_row || arguments.evaluation != 0) WriteResultRow(evaluator, summary, index);
  }
  summary << std::endl;
  return polar_status::kSuccess;
}
