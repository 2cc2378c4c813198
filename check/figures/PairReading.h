#pragma once

#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "polar/evaluate/PairEvaluator.h"
#include "polarline/check.h"

namespace polarline {

/// The names of the figures, in their order.
std::vector<std::string> figureNames();

/// What the values of a figure are like.
struct FigureShape {
  bool is_list = false;
  std::size_t entries = 0;  ///< Of lists that always have as many; 0: as many as the configuration asks for.
};

/// None for what is no figure.
std::optional<FigureShape> figureShape(const std::string& name);

/// The figures that the evaluator measured of its current pair; what others measured has no values.
std::vector<Figure> ownFigures(const PairEvaluator& evaluator);

/// The dots that its evaluations saw.
PairPoints pointsOf(const PairObservation& seen);

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
