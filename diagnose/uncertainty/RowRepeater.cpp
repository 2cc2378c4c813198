#include "diagnose/uncertainty/RowRepeater.h"

RowRepeater::RowRepeater(const PairEvaluator& evaluator, const DotScene& rectified)
    : limit_(evaluator.config().dy_bias_divid) {
  const std::vector<SharedDot>& dots = evaluator.seen.rectified;
  const auto count = static_cast<Eigen::Index>(dots.size());
  Eigen::RowVectorXd seen(count);
  for (Eigen::Index dot = 0; dot < count; ++dot) {
    const SharedDot& each = dots[static_cast<std::size_t>(dot)];
    seen[dot] = each.left.y - each.right.y;
  }
  const Eigen::Matrix4d covariance = rectified.covariance();
  differences_ = withoutNoise(seen, rectified.trend, covariance(1, 1) + covariance(3, 3));
  figures.push_back({"dy_means", evaluator.figures.dy_means, 0.0, {}});
  figures.push_back({"dy_ratio", evaluator.figures.dy_ratio, 1.0 / static_cast<double>(count), {}, 1.0});
}

void RowRepeater::add(const Repetition& repetition) {
  const Eigen::ArrayXd differences =
      (differences_ + repetition.pixels.row(1) - repetition.pixels.row(3)).transpose().array().abs();
  figures[0].values.push_back(differences.mean());
  figures[1].values.push_back(static_cast<double>((differences > limit_).count()) /
                              static_cast<double>(differences.size()));
}
