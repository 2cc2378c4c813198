#include "diagnose/uncertainty/DotScene.h"

DotScene::DotScene(const std::vector<std::int32_t>& ids, int columns, const CentreNoise& noise_left,
                   const CentreNoise& noise_right)
    : grid(ids, columns), layout(grid), trend(grid), left(noise_left, columns), right(noise_right, columns) {}

void DotScene::repeat(SeededRandom& random, Repetition& repetition) const {
  Eigen::Matrix2Xd shifts;
  left.draw(layout, random, shifts);
  repetition.pixels.resize(4, shifts.cols());
  repetition.pixels.topRows<2>() = shifts;
  right.draw(layout, random, shifts);
  repetition.pixels.bottomRows<2>() = shifts;
  repetition.positions.resize(3, static_cast<Eigen::Index>(slopes.size()));
  for (Eigen::Index dot = 0; dot < repetition.positions.cols(); ++dot) {
    repetition.positions.col(dot) = slopes[static_cast<std::size_t>(dot)].position * repetition.pixels.col(dot);
  }
}

Eigen::Matrix4d DotScene::covariance() const {
  Eigen::Matrix4d covariance = Eigen::Matrix4d::Zero();
  covariance.topLeftCorner<2, 2>() = left.covariance();
  covariance.bottomRightCorner<2, 2>() = right.covariance();
  return covariance;
}

double DotScene::positionVariance() const {
  const Eigen::Matrix4d of_pixels = covariance();
  double sum = 0.0;
  for (std::size_t dot = 0; dot < slopes.size(); ++dot) {
    const double in_left = left.levels().at(grid.row(dot), grid.column(dot));
    const double in_right = right.levels().at(grid.row(dot), grid.column(dot));
    const Eigen::Vector4d levels(in_left, in_left, in_right, in_right);
    const Eigen::Matrix<double, 3, 4> slope = slopes[dot].position * levels.asDiagonal();
    sum += (slope * of_pixels * slope.transpose()).trace();
  }
  return slopes.empty() ? 0.0 : sum / static_cast<double>(slopes.size());
}
