#include "diagnose/uncertainty/SpacingRepeater.h"

#include <cmath>
#include <cstdint>
#include <map>

SpacingRepeater::SpacingRepeater(const PairEvaluator& evaluator, const DotScene& rectified)
    : step_(evaluator.config().pattern_step) {
  const std::vector<SharedDot>& dots = evaluator.seen.rectified;
  const auto count = static_cast<Eigen::Index>(dots.size());
  Eigen::Matrix3Xd positions(3, count);
  std::map<std::int64_t, Eigen::Index> place;
  for (Eigen::Index dot = 0; dot < count; ++dot) {
    const SharedDot& each = dots[static_cast<std::size_t>(dot)];
    positions.col(dot) = cloudPoint(each, evaluator.seen.Q);
    place.emplace(each.id, dot);
  }
  // The spacings of the figure, with the way from a row's last dot to the first one of the next.
  for (const auto& [id, dot] : place) {
    for (const std::int64_t other : {id + 1, id + evaluator.config().pattern_cols}) {
      const auto found = place.find(other);
      if (found != place.end()) spacings_.emplace_back(dot, found->second);
    }
  }
  positions_ = withoutNoise(positions, rectified.trend, rectified.positionVariance());
  figures.push_back({"allpoints_means", evaluator.figures.allpoints_means, 0.0, {}});
}

void SpacingRepeater::add(const Repetition& repetition) {
  const Eigen::Matrix3Xd positions = positions_ + repetition.positions;
  double sum = 0.0;
  for (const auto& [from, to] : spacings_) sum += (positions.col(from) - positions.col(to)).norm();
  figures[0].values.push_back(std::abs(sum / static_cast<double>(spacings_.size()) - step_));
}
