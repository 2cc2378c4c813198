#pragma once

#include <utility>
#include <vector>

#include "diagnose/uncertainty/DotScene.h"
#include "polar/evaluate/PairEvaluator.h"

/// `allpoints_means`.
class SpacingRepeater final : public FigureRepeater {
 public:
  SpacingRepeater(const PairEvaluator& evaluator, const DotScene& rectified);
  void add(const Repetition& repetition) override;

 private:
  double step_;
  std::vector<std::pair<Eigen::Index, Eigen::Index>> spacings_;
  Eigen::Matrix3Xd positions_;  ///< Without noise.
};
