#pragma once

#include <cstdint>

#include "polar/evaluate/PairEvaluator.h"
#include "polarline/check.h"

namespace polarline {

/// Why the pair that the evaluator has just done was given up.
Reason reasonOf(std::int32_t status, const PairEvaluator& evaluator);

}  // namespace polarline
