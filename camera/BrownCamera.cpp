#include "camera/BrownCamera.h"

BrownCamera::BrownCamera(const CameraFloats& camera) : coefficients_(brownCoefficientsOf(camera)) {
  SetParams({0, 0, camera.fx, camera.fy, camera.cx, camera.cy});
}

bool BrownCamera::LoadCalib(StereoCalibParams calib, int camera_index) {
  const CameraCalib* const camera = cameraOf(calib, camera_index);
  if (camera == nullptr) return false;
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera->intrinsics;
  SetParams({static_cast<double>(camera->width), static_cast<double>(camera->height), fx, fy, cx, cy});
  coefficients_ = {k1, k2, k3, k4, k5, k6, p1, p2};
  return true;
}

bool BrownCamera::AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const {
  normalised_raw = BrownDistort(normalised_ideal, coefficients_);
  return true;
}

bool BrownCamera::RemoveDistortion(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return BrownUndistort(normalised_raw, coefficients_, normalised_ideal);
}
