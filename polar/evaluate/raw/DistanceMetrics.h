#pragma once

#include <opencv2/core.hpp>

#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/FoursixStep.h"
#include "polar/geometry/CameraPairModel.h"

/// Where the distance evaluations of the two lens models part.
struct DistanceRules {
  bool board_check_table = false;  ///< Write the figures of each point to the board check table.
  double projection_limit = 0.0;   ///< Distances of the fitted board above this are left out of `gt_rms`, pixels.
  bool outlier_search = false;     ///< A point that stands out from the fit ends the evaluation.
  FoursixRules foursix;
};

/// Measures and triangulates a raw pair and judges it by its residuals, by the board's true distances and by the six
/// distances of four points, each under its switch.
PairStatus evaluateRawPair(PairEvaluator& evaluator, const PairInput& raw, const CameraPairModel& model,
                           const DistanceRules& rules);
