#pragma once

#include "diagnose/uncertainty/DotScene.h"
#include "polar/evaluate/PairEvaluator.h"

/// `dy_means` and `dy_ratio`.
class RowRepeater final : public FigureRepeater {
 public:
  RowRepeater(const PairEvaluator& evaluator, const DotScene& rectified);
  void add(const Repetition& repetition) override;

 private:
  double limit_;
  Eigen::RowVectorXd differences_;  ///< Signed, without noise.
};
