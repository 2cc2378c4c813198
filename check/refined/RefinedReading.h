#pragma once

#include <cstdint>
#include <vector>

#include "check/refined/RefinedPictures.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polarline/check.h"

namespace polarline {

/// A pair's record from the evaluator that has evaluated its refined dots; `status`: what ended that, otherwise 0.
/// `frame_ids`: the ids of a frame's points by their places; empty where dots bear ids.
RefinedPair readRefined(std::int32_t status, const PairEvaluator& evaluator, const RefinedPictures& pictures,
                        const std::vector<std::int32_t>& frame_ids);

/// Of a pair that was given up: every figure without a value.
RefinedPair nothingRefined();

}  // namespace polarline
