#include "polar/evaluate/PairEvaluator.h"

#include <utility>

#include "PolarLinePrecision/Status.h"
#include "polar/measure/PointDetection.h"

PairEvaluator::PairEvaluator(std::shared_ptr<const PolarConfig> configuration)
    : result_folder(configuration->result_folder),
      eccentricity(configuration->eccentricity),
      config_(std::move(configuration)) {}

PairStatus PairEvaluator::measure(const PairInput& input, MeasuredPair& pair) {
  seen.measurement = measureAs(input, pair);
  seen.found = pair.found;
  seen.failed = pair.failed;
  if (on_measured && seen.measurement == polar_status::kSuccess) on_measured(pair);
  return seen.measurement;
}

PairStatus PairEvaluator::measureAs(const PairInput& input, MeasuredPair& pair) {
  if (input.evalu_model == 0) return MeasurePairPoints(input, pair);
  if (input.evalu_model == 1) return DetectPairPoints(input, pair);
  return polar_status::kSuccess;
}

PairStatus PairEvaluator::MeasurePairPoints(const PairInput& input, MeasuredPair& pair) {
  if (measurement) return measurement(0, pair);
  return measurePairPoints({config(), boardPoints, eccentricity, left_dist, right_dist, detections}, input, pair,
                           figures, errorText);
}

PairStatus PairEvaluator::DetectPairPoints(const PairInput& input, MeasuredPair& pair) {
  if (measurement) return measurement(1, pair);
  return detectPairPoints(input, pair, detections);
}

bool PairEvaluator::enoughShared(const MeasuredPair& pair, std::size_t minimum) {
  const bool enough = pair.left_points.size() >= minimum && pair.right_points.size() >= minimum;
  usable = enough ? 1 : 0;
  return enough;
}
