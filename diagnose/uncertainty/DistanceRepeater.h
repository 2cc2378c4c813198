#pragma once

#include <Eigen/Core>

#include "diagnose/uncertainty/DotScene.h"
#include "polar/evaluate/PairEvaluator.h"

/// Of one direction a column: its squares xx, yy, zz and its products xy, xz, yz.
using Matrix6Xd = Eigen::Matrix<double, 6, Eigen::Dynamic>;

/// A sum of squared distance errors over all pairs of dots, as it follows the positions: its value, its slope at each
/// dot, and how much the square of a dot's shift adds. What the shifts of two dots do together is left out; it falls
/// off with the root of their number.
struct DistanceSum {
  double squares = 0.0;
  double pairs = 0.0;
  Eigen::Matrix3Xd slope;
  Matrix6Xd curvature;  ///< Of squares and products.

  void add(Eigen::Index i, Eigen::Index j, const Eigen::Vector3d& direction, double error, double weight);
  /// Root mean square in a repetition. `products`: of the shifts.
  double rms(const Eigen::Matrix3Xd& shifts, const Matrix6Xd& products) const;
};

/// `zero_dis`, `dis_rms` and `nor_rms`.
class DistanceRepeater final : public FigureRepeater {
 public:
  /// `positions`: of the dots, without noise; `truth`: where they are on the board.
  DistanceRepeater(const PairEvaluator& evaluator, const Eigen::Matrix3Xd& positions, const Eigen::Matrix3Xd& truth);
  void add(const Repetition& repetition) override;

 private:
  const Eigen::Matrix3Xd& positions_;
  DistanceSum plain_, relative_;
  Matrix6Xd products_;
};
