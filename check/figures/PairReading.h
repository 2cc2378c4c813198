#pragma once

#include <bitset>

#include "polar/evaluate/PairEvaluator.h"
#include "polarline/check.h"

namespace polarline {

/// The names of the figures, in their order.
std::vector<std::string> figureNames();

/// Reads what a run shows of a pair into the record of a check.
class PairReading {
 public:
  /// Figures, reason and points of the pair that the evaluator has just done. Call once a pair, in order: what is
  /// carried depends on the pairs before.
  PairCheck read(bool finished, std::int32_t status, const PairEvaluator& evaluator);

 private:
  std::bitset<kFigureGroups> measured_before_;
};

}  // namespace polarline
