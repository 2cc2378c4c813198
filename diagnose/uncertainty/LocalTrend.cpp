#include "diagnose/uncertainty/LocalTrend.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kReach = 2;
constexpr int kTerms = 6;
constexpr std::size_t kLeastNeighbours = 12;  ///< Twice the terms.

using Terms = Eigen::Matrix<double, kTerms, 1>;

Terms termsAt(int dx, int dy) {
  const double x = dx;
  const double y = dy;
  Terms terms;
  terms << 1.0, x, y, x * x, x * y, y * y;
  return terms;
}

}  // namespace

LocalTrend::LocalTrend(const BoardGrid& grid) : weights_(grid.count()) {
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    std::vector<Weight>& weights = weights_[dot];
    std::vector<Terms> terms;
    Eigen::Matrix<double, kTerms, kTerms> normal = Eigen::Matrix<double, kTerms, kTerms>::Zero();
    for (int dy = -kReach; dy <= kReach; ++dy) {
      for (int dx = -kReach; dx <= kReach; ++dx) {
        const auto neighbour = grid.at(grid.row(dot) + dy, grid.column(dot) + dx);
        if (!neighbour) continue;
        weights.push_back({*neighbour, 0.0});
        terms.push_back(termsAt(dx, dy));
        normal += terms.back() * terms.back().transpose();
      }
    }
    const Eigen::LDLT<Eigen::Matrix<double, kTerms, kTerms>> solver(normal);
    if (weights.size() < kLeastNeighbours || solver.rcond() < 1e-6) {
      weights.clear();
      continue;
    }
    const Terms at_dot = solver.solve(termsAt(0, 0));
    for (std::size_t k = 0; k < weights.size(); ++k) {
      weights[k].weight = at_dot.dot(terms[k]);
      if (weights[k].dot == dot) left_over_ += 1.0 - weights[k].weight;
    }
  }
}

Eigen::MatrixXd LocalTrend::scatter(const Eigen::MatrixXd& field) const {
  Eigen::MatrixXd scatter = Eigen::MatrixXd::Zero(field.rows(), field.cols());
  for (std::size_t dot = 0; dot < weights_.size(); ++dot) {
    if (weights_[dot].empty()) continue;
    const auto column = static_cast<Eigen::Index>(dot);
    scatter.col(column) = field.col(column);
    for (const Weight& each : weights_[dot]) {
      scatter.col(column) -= each.weight * field.col(static_cast<Eigen::Index>(each.dot));
    }
  }
  return scatter;
}

double LocalTrend::variance(const Eigen::MatrixXd& scatter) const {
  return left_over_ > 0.0 ? scatter.squaredNorm() / left_over_ : 0.0;
}

Eigen::MatrixXd withoutNoise(const Eigen::MatrixXd& field, const LocalTrend& trend, double noise_variance) {
  const Eigen::MatrixXd scatter = trend.scatter(field);
  const double variance = trend.variance(scatter);
  if (!(variance > 0.0)) return field;
  const double kept = std::sqrt(std::max(0.0, 1.0 - noise_variance / variance));
  return field - (1.0 - kept) * scatter;
}
