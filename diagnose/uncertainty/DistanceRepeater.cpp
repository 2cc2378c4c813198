#include "diagnose/uncertainty/DistanceRepeater.h"

#include <algorithm>
#include <cmath>

namespace {

/// Of boards with more dots every k-th pair is looked at, so that the time grows with the number of dots only.
constexpr Eigen::Index kDotsOfAllPairs = 700;

DistanceSum emptySum(Eigen::Index dots) {
  DistanceSum sum;
  sum.slope = Eigen::Matrix3Xd::Zero(3, dots);
  sum.curvature = Matrix6Xd::Zero(6, dots);
  return sum;
}

Eigen::Matrix<double, 6, 1> productsOf(const Eigen::Vector3d& way) {
  Eigen::Matrix<double, 6, 1> products;
  products << way.cwiseAbs2(), way.x() * way.y(), way.x() * way.z(), way.y() * way.z();
  return products;
}

}  // namespace

void DistanceSum::add(Eigen::Index i, Eigen::Index j, const Eigen::Vector3d& direction, double error, double weight) {
  squares += weight * error * error;
  pairs += 1.0;
  const Eigen::Vector3d pull = (2.0 * weight * error) * direction;
  slope.col(i) += pull;
  slope.col(j) -= pull;
  Eigen::Matrix<double, 6, 1> bend = weight * productsOf(direction);
  bend.tail<3>() *= 2.0;  // Each product stands for both of its places in the square.
  curvature.col(i) += bend;
  curvature.col(j) += bend;
}

double DistanceSum::rms(const Eigen::Matrix3Xd& shifts, const Matrix6Xd& products) const {
  const double sum = squares + slope.cwiseProduct(shifts).sum() + curvature.cwiseProduct(products).sum();
  return std::sqrt(std::max(0.0, sum) / pairs);
}

DistanceRepeater::DistanceRepeater(const PairEvaluator& evaluator, const Eigen::Matrix3Xd& positions,
                                   const Eigen::Matrix3Xd& truth)
    : positions_(positions), plain_(emptySum(positions.cols())), relative_(emptySum(positions.cols())) {
  const Eigen::Index count = positions.cols();
  const Eigen::Index stride = std::max<Eigen::Index>(1, count * count / (kDotsOfAllPairs * kDotsOfAllPairs));
  for (Eigen::Index i = 0; i < count; ++i) {
    for (Eigen::Index j = i + 1 + i % stride; j < count; j += stride) {
      const Eigen::Vector3d way = positions.col(i) - positions.col(j);
      const double length = way.norm();
      const double true_length = (truth.col(i) - truth.col(j)).norm();
      if (!(length > 0.0) || !(true_length > 0.0)) continue;
      const Eigen::Vector3d direction = way / length;
      const double error = length - true_length;
      plain_.add(i, j, direction, error, 1.0);
      relative_.add(i, j, direction, error, 1.0 / (true_length * true_length));
    }
  }
  figures.push_back({"dis_rms", evaluator.figures.dis_rms, 0.0, {}});
  figures.push_back({"nor_rms", evaluator.figures.nor_rms, 0.0, {}});
  figures.push_back({"zero_dis", evaluator.figures.zero_dis, 0.0, {}});
}

void DistanceRepeater::add(const Repetition& repetition) {
  const Eigen::Matrix3Xd& shifts = repetition.positions;
  products_.resize(6, shifts.cols());
  for (Eigen::Index dot = 0; dot < shifts.cols(); ++dot) products_.col(dot) = productsOf(shifts.col(dot));
  figures[0].values.push_back(plain_.rms(shifts, products_));
  figures[1].values.push_back(relative_.rms(shifts, products_));
  figures[2].values.push_back((positions_ + repetition.positions).colwise().norm().mean());
}
