#pragma once

#include <vector>

#include "diagnose/uncertainty/DotScene.h"
#include "polar/evaluate/PairEvaluator.h"

/// `tri_mean` and `tri_rms`.
class ResidualRepeater final : public FigureRepeater {
 public:
  ResidualRepeater(const PairEvaluator& evaluator, const DotScene& raw);
  void add(const Repetition& repetition) override;

 private:
  const DotScene& raw_;
  std::vector<bool> is_kept_;
  Eigen::RowVectorXd residuals_;  ///< Signed, without noise.
};
