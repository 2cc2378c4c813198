#include "diagnose/uncertainty/ResidualRepeater.h"

#include <cmath>

namespace {

/// As in the evaluation: what is above counts as a wrong match, pixels.
constexpr float kOutlierLimit = 5.0F;

double meanVariance(const DotScene& raw) {
  const Eigen::Matrix4d covariance = raw.covariance();
  double sum = 0.0;
  for (const TriangulationSlope& slope : raw.slopes) sum += slope.residual.dot(covariance * slope.residual);
  return sum / static_cast<double>(raw.slopes.size());
}

}  // namespace

ResidualRepeater::ResidualRepeater(const PairEvaluator& evaluator, const DotScene& raw) : raw_(raw) {
  const PairObservation& seen = evaluator.seen;
  Eigen::RowVectorXd residuals(static_cast<Eigen::Index>(raw.slopes.size()));
  for (std::size_t dot = 0; dot < raw.slopes.size(); ++dot) {
    const cv::Point2f predicted = seen.predicted_right[dot];
    const cv::Point2f way = seen.raw[dot].right - predicted;
    is_kept_.push_back(predicted != cv::Point2f(0.0F, 0.0F) && seen.residuals[dot] <= kOutlierLimit);
    residuals[static_cast<Eigen::Index>(dot)] =
        is_kept_.back() ? raw.slopes[dot].residual_axis.dot(Eigen::Vector2d(way.x, way.y)) : 0.0;
  }
  residuals_ = withoutNoise(residuals, raw.trend, meanVariance(raw));
  figures.push_back({"tri_mean", evaluator.figures.tri_mean, 0.0, {}});
  figures.push_back({"tri_rms", evaluator.figures.tri_rms, 0.0, {}});
}

void ResidualRepeater::add(const Repetition& repetition) {
  double sum = 0.0;
  double squares = 0.0;
  double kept = 0.0;
  for (Eigen::Index dot = 0; dot < residuals_.size(); ++dot) {
    const auto place = static_cast<std::size_t>(dot);
    if (!is_kept_[place]) continue;
    const double residual = residuals_[dot] + raw_.slopes[place].residual.dot(repetition.pixels.col(dot));
    sum += std::abs(residual);
    squares += residual * residual;
    kept += 1.0;
  }
  figures[0].values.push_back(sum / kept);
  figures[1].values.push_back(std::sqrt(squares / kept));
}
