#include "polar/run/SecondLook.h"

#include <array>
#include <cmath>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/measure/SharedPoints.h"

namespace {

/// What each evaluation of a pair measured: with the compensation of the eccentricity two of the same pictures differ.
using Measured = std::map<std::string_view, MeasuredPair>;

bool isRectified(std::string_view evaluation) { return evaluation == "rows" || evaluation == "cloud"; }

/// A frame's point that was not found stands at the origin, one whose compensation failed nowhere.
bool isThere(const cv::Point2f& pixel) {
  return pixel != cv::Point2f(0.0F, 0.0F) && std::isfinite(pixel.x) && std::isfinite(pixel.y);
}

/// Each dot's place in one picture as it came; where no evaluation measured there, the way back from the rectified one.
CentresById placesOf(const Measured& measured, PointsById MeasuredPair::*side, const VirtualView& view) {
  CentresById places;
  for (const bool rectified : {false, true}) {
    for (const auto& [evaluation, pair] : measured) {
      if (isRectified(evaluation) != rectified) continue;
      for (const auto& [id, pixel] : pair.*side) {
        if (!isThere(pixel) || places.contains(id)) continue;
        const auto place = rectified ? view.toReal(cv::Point2d(pixel)) : std::optional(cv::Point2d(pixel));
        if (place) places.emplace(id, *place);
      }
    }
  }
  return places;
}

CentresById rectifiedCentres(const CentresById& refined, const VirtualView& view) {
  CentresById centres;
  for (const auto& [id, centre] : refined) {
    if (const auto pixel = view.ofReal(centre)) centres.emplace(id, *pixel);
  }
  return centres;
}

void replace(const CentresById& centres, PointsById& points) {
  for (auto& [id, pixel] : points) {
    const auto better = centres.find(id);
    // The evaluations take pixels in single precision.
    if (better != centres.end()) pixel = cv::Point2f(better->second);
  }
}

void replace(const RefinedCentres& refined, MeasuredPair& pair) {
  replace(refined.left, pair.left_by_id);
  replace(refined.right, pair.right_by_id);
  for (const std::int32_t id : refined.not_dots) {
    pair.left_by_id.erase(id);
    pair.right_by_id.erase(id);
  }
  pair.left_points.clear();
  pair.right_points.clear();
  appendShared(pair);
}

void refine(CentreRefiner& refiner, const PairInput& raw, const PairViews& views, Measured& measured) {
  const RefinedCentres refined = refiner.refine(raw, {placesOf(measured, &MeasuredPair::left_by_id, views.left),
                                                      placesOf(measured, &MeasuredPair::right_by_id, views.right)});
  const RefinedCentres rectified = {rectifiedCentres(refined.left, views.left),
                                    rectifiedCentres(refined.right, views.right), refined.not_dots};
  for (auto& [evaluation, pair] : measured) replace(isRectified(evaluation) ? rectified : refined, pair);
}

/// The pair's pictures, cameras and points through a run's evaluations once more.
void lookAgain(CentreRefiner& refiner, const SecondSteps& steps, const PairInput& raw, Measured& measured,
               PairEvaluator& second) {
  std::ostream nowhere(nullptr);
  const console::Redirection quiet(nowhere, nowhere);
  second.result_folder.clear();
  second.measurement = [&](std::int32_t /*evalu_model*/, MeasuredPair& pair) {
    pair = measured.at(second.seen.evaluation);
    return polar_status::kSuccess;
  };
  second.frame_measurement = [&] { return measured.at(second.seen.evaluation); };
  PairStatus status = polar_status::kSuccess;
  try {
    refine(refiner, raw, steps.views(raw), measured);
    status = steps.evaluate(raw, second);
  } catch (const std::exception& error) {
    status = kMeasurementFailed;
    second.errorText = error.what();
  }
  refiner.evaluated(status, second);
}

}  // namespace

PairEvaluation withSecondLook(const PairEvaluation& first, CentreRefiner& refiner, PairEvaluator& evaluator,
                              const SecondSteps& second) {
  const auto measured = std::make_shared<Measured>();
  const PairEvaluator unused = evaluator;
  evaluator.on_measured = [measured, &evaluator](const MeasuredPair& pair) {
    (*measured)[evaluator.seen.evaluation] = pair;
  };
  return [=, &refiner, &evaluator](std::size_t index, const PairInput& raw) {
    measured->clear();
    const PairResult result = first(index, raw);
    if (result.outcome == PairOutcome::kFinished) {
      PairEvaluator again = unused;
      again.image_id = evaluator.image_id;
      lookAgain(refiner, second, raw, *measured, again);
    }
    return result;
  };
}
