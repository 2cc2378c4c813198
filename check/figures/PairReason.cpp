#include "check/figures/PairReason.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "PolarLinePrecision/Status.h"
#include "check/picture/DetectionWords.h"
#include "check/picture/DotSize.h"
#include "polar/evaluate/raw/CountedErrors.h"
#include "polar/geometry/FourPointMethod.h"
#include "polar/results/PairStatus.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Of a detection that found too few dots: the first picture with too few ends the measurement.
std::string sideOf(const PairObservation& seen) {
  if (seen.measurement != polar_status::kTooFewDetected) return {};
  return seen.found[0] < kLeastSharedRaw ? "left" : "right";
}

/// In the words of a detection of this one picture.
std::string whyOf(const FailedDetection& failed) {
  return wordsOf({.config = failed.config,
                  .trace = failed.trace,
                  .size = failed.size,
                  .type = failed.type,
                  .dot_radius = medianDotRadius(failed.trace)})
      .text;
}

/// Which of the four dots of an evaluation is missing; the library tells its number only.
std::string missingDotOf(const PairEvaluator& evaluator) {
  const PolarConfig& config = evaluator.config();
  const bool is_cloud = std::string_view(evaluator.seen.evaluation) == "cloud";
  const std::array<std::int32_t, 4> ids =
      is_cloud ? std::array{config.PolPoint1_ID, config.PolPoint2_ID, config.PolPoint3_ID, config.PolPoint4_ID}
               : std::array{config.TriPoint1_ID, config.TriPoint2_ID, config.TriPoint3_ID, config.TriPoint4_ID};
  for (std::size_t k = 0; k < ids.size(); ++k) {
    if (evaluator.errorText != four_points::missingText(static_cast<int>(k))) continue;
    const auto& dots = is_cloud ? evaluator.seen.rectified : evaluator.seen.raw;
    const bool is_seen = std::ranges::count(dots, ids.at(k), &SharedDot::id) != 0;
    return fmt::format("dot {} ({}Point{}_ID) {} ({})", ids.at(k), is_cloud ? "Pol" : "Tri", k + 1,
                       is_seen ? "lies at the origin" : "was not seen in both pictures", evaluator.errorText);
  }
  return evaluator.errorText;
}

std::string tooFewDetectedText(const Reason& reason, const PairObservation& seen) {
  const std::size_t side = reason.side == "left" ? 0 : 1;
  const std::string found = fmt::format("{} dots were found in the {}{} picture; 6 are needed", seen.found.at(side),
                                        reason.of_rectified ? "rectified " : "", reason.side);
  return seen.failed.at(side) ? found + ": " + whyOf(*seen.failed.at(side)) : found;
}

/// The evaluations of rows and cloud look at pictures that were warped; of pairs that were rectified elsewhere they are
/// those of the list.
bool isOfRectified(const PairEvaluator& evaluator) {
  const std::string_view evaluation = evaluator.seen.evaluation;
  return evaluation == "rows" || evaluation == "cloud";
}

/// The dots were shared, and the evaluation ended at their residuals.
bool endedAtResiduals(const Reason& reason, const PairObservation& seen) {
  const std::string_view evaluation = seen.evaluation;
  return reason.code == polar_status::kTooFewShared &&
         (evaluation == "frame" || (evaluation == "triangulation" && !seen.raw.empty()));
}

std::string tooFewSharedText(const Reason& reason, const PairObservation& seen) {
  if (!reason.of_residuals)
    return fmt::format("too few dots are in both pictures: {} were found in the left one, {} in the right one",
                       seen.found[0], seen.found[1]);
  const std::string dots = seen.raw.empty() ? "" : fmt::format("{} dots are in both pictures, and ", seen.raw.size());
  return dots + fmt::format("no residual could be taken: all are above {:g} pixels", kLargestResidual);
}

std::string textOf(const Reason& reason, const PairEvaluator& evaluator) {
  const PairObservation& seen = evaluator.seen;
  if (reason.code == polar_status::kTooFewDetected) return tooFewDetectedText(reason, seen);
  if (reason.code == polar_status::kTooFewShared) return tooFewSharedText(reason, seen);
  if (reason.code == polar_status::kPointMissing && !evaluator.errorText.empty()) return missingDotOf(evaluator);
  if (!evaluator.errorText.empty() && reason.code != kGroupPointMissing) return evaluator.errorText;
  // A run's status 1 is another thing.
  const auto explained = explain(reason.code == kMeasurementFailed ? "1 in a pair" : std::to_string(reason.code));
  return explained ? explained->meaning : "status " + std::to_string(reason.code);
}

}  // namespace

Reason reasonOf(std::int32_t status, const PairEvaluator& evaluator) {
  const PairObservation& seen = evaluator.seen;
  Reason reason;
  // The rows and the cloud say only that the measurement failed; it knows more.
  reason.code = status == kMeasurementFailed && seen.measurement != 0 ? seen.measurement : status;
  reason.side = sideOf(seen);
  const auto& failed = seen.failed.at(reason.side == "right" ? 1 : 0);
  reason.step = !reason.side.empty() && failed ? nameOf(failed->trace.step) : seen.evaluation;
  reason.of_residuals = endedAtResiduals(reason, seen);
  reason.of_rectified = isOfRectified(evaluator);
  reason.text = textOf(reason, evaluator);
  return reason;
}

}  // namespace polarline
