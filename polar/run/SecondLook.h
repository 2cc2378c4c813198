#pragma once

#include <functional>

#include "camera/VirtualView.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"

/// Where both rectified pictures of a pair show what the real ones do.
struct PairViews {
  VirtualView left, right;
};

/// Of pairs that the run does not warp.
inline PairViews unwarped(const PairInput& /*raw*/) { return {}; }

/// How a run looks at a pair that it has finished a second time.
struct SecondSteps {
  /// Of the pair that was just evaluated.
  std::function<PairViews(const PairInput& raw)> views;
  /// All evaluations of the run, by an evaluator that is given its points and writes no files. Leaves the run as it
  /// was. The status that ends the evaluations, otherwise 0.
  std::function<PairStatus(const PairInput& raw, PairEvaluator& evaluator)> evaluate;
};

/// The evaluation of a run's pairs, and behind each that is finished the second look of the refiner, which sees the
/// pictures while the walk still has them. `evaluator` is the run's and has evaluated nothing yet; it and the refiner
/// outlive what is given back.
///
/// The second look evaluates the dots that the first one measured, under the same ids: nothing is detected again, and
/// the figures differ only by where the centres are, and by the dots that the refiner says are none. What it leaves out
/// keeps the centre that it was measured at, in the raw and in the rectified pictures each. A refined centre comes into
/// the rectified pictures by the lens and the virtual camera themselves, without their warped pixels. The compensation
/// of the eccentricity stays out of it.
PairEvaluation withSecondLook(const PairEvaluation& first, CentreRefiner& refiner, PairEvaluator& evaluator,
                              const SecondSteps& second);
