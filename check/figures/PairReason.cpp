#include "check/figures/PairReason.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "PolarLinePrecision/Status.h"
#include "check/picture/DetectionWords.h"
#include "check/picture/DotSize.h"
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

std::string textOf(const Reason& reason, const PairEvaluator& evaluator) {
  const PairObservation& seen = evaluator.seen;
  if (reason.code == polar_status::kTooFewDetected) {
    const std::size_t side = reason.side == "left" ? 0 : 1;
    const std::string found =
        std::to_string(seen.found.at(side)) + " dots were found in the " + reason.side + " picture; 6 are needed";
    return seen.failed.at(side) ? found + ": " + whyOf(*seen.failed.at(side)) : found;
  }
  if (reason.code == polar_status::kTooFewShared) {
    return std::to_string(seen.raw.empty() ? seen.rectified.size() : seen.raw.size()) +
           " dots are in both pictures, or no residual could be taken";
  }
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
  reason.text = textOf(reason, evaluator);
  return reason;
}

}  // namespace polarline
