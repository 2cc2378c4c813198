#pragma once

#include <Eigen/Core>
#include <vector>

/// A rigid motion: target = R source + t.
struct RigidMotion {
  Eigen::Matrix3d R = Eigen::Matrix3d::Identity();
  Eigen::Vector3d t = Eigen::Vector3d::Zero();
};

/// The proper rotation and the translation that bring `source` closest to `target` in the least-squares sense, points
/// of equal index belonging together (Kabsch 1976, with the correction of reflections). All in doubles. Precondition:
/// at least one point. `std::out_of_range` when `target` is shorter; NaN coordinates give a motion of
/// NaN.
RigidMotion FitRigidOntoBoard(const std::vector<Eigen::Vector3d>& source, const std::vector<Eigen::Vector3d>& target);
