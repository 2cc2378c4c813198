#include "diagnose/uncertainty/TriangulationSlope.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <cmath>

namespace {

Eigen::Matrix3d matrixOf(const cv::Matx33d& matrix) {
  return Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(matrix.val);
}

Eigen::Vector4d homogeneousOf(const SharedDot& rectified, const cv::Matx44d& Q) {
  const double disparity = static_cast<double>(rectified.left.x) - static_cast<double>(rectified.right.x);
  const cv::Vec4d product = Q * cv::Vec4d(rectified.left.x, rectified.left.y, disparity, 1.0);
  return {product[0], product[1], product[2], product[3]};
}

/// The unit vector across the three columns, along which pixels move no point.
Eigen::Vector4d acrossColumns(const Eigen::Matrix<double, 4, 3>& pixels, const Eigen::Matrix<double, 3, 4>& inverse) {
  const Eigen::Matrix4d across = Eigen::Matrix4d::Identity() - pixels * inverse;
  Eigen::Index largest = 0;
  across.diagonal().maxCoeff(&largest);
  return across.col(largest).normalized();
}

}  // namespace

Eigen::Matrix<double, 2, 3> pixelSlope(const cv::Matx33d& K, const Eigen::Vector3d& point) {
  const double per_x = K(0, 0) / point.z();
  const double per_y = K(1, 1) / point.z();
  Eigen::Matrix<double, 2, 3> slope;
  slope << per_x, 0.0, -per_x * point.x() / point.z(), 0.0, per_y, -per_y * point.y() / point.z();
  return slope;
}

TriangulationSlope slopeAt(const cv::Point3f& point_left, const SeenCameras& cameras) {
  const Eigen::Matrix3d R = matrixOf(cameras.R);
  const Eigen::Vector3d left(point_left.x, point_left.y, point_left.z);
  const Eigen::Vector3d right = R * left + Eigen::Vector3d(cameras.T[0], cameras.T[1], cameras.T[2]);
  if (!left.allFinite() || !(left.z() > 0.0) || !(right.z() > 0.0)) return {};
  Eigen::Matrix<double, 4, 3> pixels;
  pixels << pixelSlope(cameras.left_K, left), pixelSlope(cameras.right_K, right) * R;
  const Eigen::Matrix3d normal = pixels.transpose() * pixels;

  TriangulationSlope slope;
  slope.position = normal.inverse() * pixels.transpose();
  if (!slope.position.allFinite()) return {};
  Eigen::Vector4d across = acrossColumns(pixels, slope.position);
  Eigen::Vector2d in_right = across.tail<2>();
  // One sign for all dots: down, or to the right where the cameras stand above each other.
  const double direction = std::abs(in_right.y()) >= std::abs(in_right.x()) ? in_right.y() : in_right.x();
  if (direction < 0.0) across = -across;
  in_right = across.tail<2>();
  const double length = in_right.norm();
  slope.residual = length * across;
  if (length > 0.0) slope.residual_axis = in_right / length;
  return slope;
}

TriangulationSlope slopeAt(const SharedDot& rectified, const cv::Matx44d& Q) {
  const Eigen::Vector4d homogeneous = homogeneousOf(rectified, Q);
  TriangulationSlope slope;
  if (homogeneous[3] == 0.0) return slope;
  for (int k = 0; k < 3; ++k) {
    const double coordinate = homogeneous[k] / homogeneous[3];
    const auto along = [&](int column) { return (Q(k, column) - coordinate * Q(3, column)) / homogeneous[3]; };
    slope.position.row(k) << along(0) + along(2), along(1), -along(2), 0.0;
  }
  return slope;
}

Eigen::Vector3d cloudPoint(const SharedDot& rectified, const cv::Matx44d& Q) {
  const Eigen::Vector4d homogeneous = homogeneousOf(rectified, Q);
  return homogeneous.head<3>() / homogeneous[3];
}
