#include "polar/run/PairWalk.h"

#include <optional>
#include <string>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/results/RecordExport.h"
#include "polar/results/Summary.h"
#include "polar/run/CropOrigin.h"
#include "polar/run/RunTexts.h"

namespace {

/// Top left pixel of the crop in an image that is large enough for it.
cv::Point checkedOrigin(const cv::Size& image, const PolarConfig& config) {
  CV_CheckGT(config.cropped_cols, 0, "cropped_cols must be positive");
  CV_CheckGT(config.cropped_rows, 0, "cropped_rows must be positive");
  CV_CheckLE(config.cropped_cols, image.width, "cropped_cols must not exceed the image's columns");
  CV_CheckLE(config.cropped_rows, image.height, "cropped_rows must not exceed the image's rows");
  return cropOrigin(image, {config.cropped_cols, config.cropped_rows});
}

// The matrices live for the run while every image arrives uncropped, so the shift adds up over the set. That is meant.
void shiftPrincipalPoint(cv::Mat& K, const cv::Point& origin) {
  if (K.empty()) return;
  K.at<double>(0, 2) -= origin.x;
  K.at<double>(1, 2) -= origin.y;
}

void cropToCentre(cv::Mat& image, cv::Mat& K, const PolarConfig& config) {
  const cv::Point origin = checkedOrigin(image.size(), config);
  shiftPrincipalPoint(K, origin);
  image = image(cv::Rect(origin, cv::Size(config.cropped_cols, config.cropped_rows))).clone();
}

std::int32_t failOnImages(PolarCore& core) {
  core.errorText = run_texts::kReadImageError;
  return polar_status::kImages;
}

std::size_t pairCount(const RunArguments& arguments) {
  return arguments.source == nullptr ? arguments.images[0].size() : arguments.source->pairs();
}

std::pair<cv::Mat, cv::Mat> imagesOf(const RunArguments& arguments, std::size_t index) {
  if (arguments.source != nullptr) return arguments.source->take(index);
  return {arguments.images[0][index], arguments.images[1].at(index)};
}

/// The pair at a position, with the cameras as the crop leaves them; none when an image is empty.
std::optional<PairInput> takePair(PolarCore& core, const RunArguments& arguments, std::size_t index) {
  auto [left_image, right_image] = imagesOf(arguments, index);
  if (left_image.empty() || right_image.empty()) {
    console::line(run_texts::kImageEmpty);
    return std::nullopt;
  }
  if (core.config->crop != 0) {
    cropToCentre(left_image, core.left.K, *core.config);
    cropToCentre(right_image, core.right.K, *core.config);
  }
  return PairInput{core.config->evalu_model,
                   arguments.targetConfigPath.c_str(),
                   std::move(left_image),
                   std::move(right_image),
                   {core.left.K, core.right.K, core.R, core.T}};
}

/// Evaluates one pair; its images end with it.
PairResult evaluatePair(PolarCore& core, const RunArguments& arguments, std::size_t index,
                        const PairEvaluation& evaluate) {
  const std::optional<PairInput> pair = takePair(core, arguments, index);
  if (!pair) return {PairOutcome::kEndRun, failOnImages(core)};
  return evaluate(index, *pair);
}

}  // namespace

bool isStereoSet(PolarCore& core, const RunArguments& arguments) {
  if (arguments.source != nullptr || arguments.images.size() == 2) return true;
  failOnImages(core);
  return false;
}

bool reportProgress(PolarCore& core, const ProgressCallback* progress, float percentage) {
  if (progress == nullptr || (*progress)(percentage)) return true;
  core.errorText = run_texts::kRunTerminated;
  return false;
}

std::int32_t walkPairs(PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator, std::ostream& summary,
                       std::chrono::steady_clock::time_point start, const WalkRules& rules,
                       const PairEvaluation& evaluate) {
  const std::size_t pairs = pairCount(arguments);
  const float step = run_texts::kAllPairsPercent / static_cast<float>(pairs);
  std::int32_t pair_count = 0;
  for (std::size_t index = 0; index < pairs; ++index) {
    evaluator.image_id = pair_count;
    evaluator.figures.measured.reset();
    evaluator.seen = {};
    evaluator.detections.forget();
    const PairResult result = evaluatePair(core, arguments, index, evaluate);
    if (arguments.observer != nullptr) {
      arguments.observer->pairDone(index, result.outcome == PairOutcome::kFinished, result.status, evaluator);
    }
    if (result.outcome == PairOutcome::kEndRun) return result.status;
    if (result.outcome == PairOutcome::kGivenUp) {
      pair_count += rules.counts_given_up ? 1 : 0;
      continue;
    }

    ++pair_count;
    const float percentage = static_cast<float>(pair_count) * step + run_texts::kRunBegunPercent;
    printTimedLine(run_texts::kPairDone + std::to_string(pair_count), start, percentage);
    if (!reportProgress(core, arguments.progress, percentage)) return polar_status::kStoppedByCallback;

    if (arguments.observer == nullptr) FillResultRecord(evaluator.figures, core.records.emplace_back());
    if (rules.writes_every_row || core.config->evaluation != 0) {
      WriteResultRow(*core.config, evaluator.figures, summary, index);
    }
  }
  summary << std::endl;
  return polar_status::kSuccess;
}
