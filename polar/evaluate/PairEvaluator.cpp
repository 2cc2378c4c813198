#include "polar/evaluate/PairEvaluator.h"

PairEvaluator::PairEvaluator(std::shared_ptr<const PolarConfig> configuration)
    : result_folder(configuration->result_folder),
      eccentricity(configuration->eccentricity),
      config_(std::move(configuration)) {}

bool PairEvaluator::enoughShared(const MeasuredPair& pair, std::size_t minimum) {
  const bool enough = pair.left_points.size() >= minimum && pair.right_points.size() >= minimum;
  usable = enough ? 1 : 0;
  return enough;
}
