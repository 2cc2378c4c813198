#include "camera/CameraMatrices.h"

#include <Eigen/Geometry>
#include <opencv2/core/eigen.hpp>
#include <vector>

namespace {

std::vector<double> distortionValues(LensModel model, const CameraFloats& camera) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera;
  switch (model) {
    case LensModel::kBrownFive:
      return {k1, k2, p1, p2, k3};
    case LensModel::kBrownEight:
      return {k1, k2, p1, p2, k3, k4, k5, k6};
    case LensModel::kFisheye:
      return {k1, k2, k3, k4};
    case LensModel::kPoly:
      break;
  }
  return {};
}

cv::Mat rowOf(const std::vector<double>& values) {
  if (values.empty()) return {};
  return cv::Mat(values, true).reshape(1, 1);
}

}  // namespace

CameraMatrices BuildCameraMatrices(std::optional<LensModel> model, const CameraFloats& camera) {
  if (!model) return {};
  CameraMatrices matrices;
  matrices.K = (cv::Mat_<double>(3, 3) << camera.fx, 0.0, camera.cx, 0.0, camera.fy, camera.cy, 0.0, 0.0, 1.0);
  matrices.D = rowOf(distortionValues(*model, camera));
  return matrices;
}

cv::Mat EulerToRotation(const std::array<float, 3>& angles) {
  const auto& [rx, ry, rz] = angles;
  const Eigen::Quaterniond rotation = Eigen::AngleAxisd(static_cast<double>(rz), Eigen::Vector3d::UnitZ()) *
                                      Eigen::AngleAxisd(static_cast<double>(rx), Eigen::Vector3d::UnitX()) *
                                      Eigen::AngleAxisd(static_cast<double>(ry), Eigen::Vector3d::UnitY());
  cv::Mat R;
  cv::eigen2cv(Eigen::Matrix3d(rotation.toRotationMatrix()), R);
  return R;
}
