#include "polar/geometry/RigidOntoBoard.h"

#include <Eigen/Dense>
#include <limits>

namespace {

Eigen::Vector3d meanOf(const std::vector<Eigen::Vector3d>& points) {
  Eigen::Vector3d sum = Eigen::Vector3d::Zero();
  for (const Eigen::Vector3d& point : points) sum += point;
  return sum / static_cast<double>(points.size());
}

Eigen::Matrix3d rotationOntoBoard(const Eigen::Matrix3d& covariance) {
  // The decomposition leaves its matrices unset for such input.
  if (!covariance.allFinite()) return Eigen::Matrix3d::Constant(std::numeric_limits<double>::quiet_NaN());
  const Eigen::JacobiSVD<Eigen::Matrix3d> decomposition(covariance, Eigen::ComputeFullU | Eigen::ComputeFullV);
  const Eigen::Matrix3d& U = decomposition.matrixU();
  Eigen::Matrix3d V = decomposition.matrixV();
  Eigen::Matrix3d R = V * U.transpose();
  if (R.determinant() < 0.0) {
    V.col(2) = -V.col(2);
    R = V * U.transpose();
  }
  return R;
}

}  // namespace

RigidMotion FitRigidOntoBoard(const std::vector<Eigen::Vector3d>& source, const std::vector<Eigen::Vector3d>& target) {
  const Eigen::Vector3d source_mean = meanOf(source);
  const Eigen::Vector3d target_mean = meanOf(target);
  Eigen::Matrix3d covariance = Eigen::Matrix3d::Zero();
  for (std::size_t i = 0; i < source.size(); ++i) {
    covariance += (source[i] - source_mean) * (target.at(i) - target_mean).transpose();
  }
  RigidMotion motion;
  motion.R = rotationOntoBoard(covariance);
  motion.t = target_mean - motion.R * source_mean;
  return motion;
}
