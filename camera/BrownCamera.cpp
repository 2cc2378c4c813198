#include "camera/BrownCamera.h"

#include <algorithm>

BrownCamera::BrownCamera(const CameraFloats& camera) {
  SetParams({0, 0, camera[0], camera[1], camera[2], camera[3]});
  std::copy(camera.begin() + 4, camera.end(), coefficients_.begin());
}

bool BrownCamera::LoadCalib(StereoCalibParams calib, int camera_index) {
  if (camera_index != 0 && camera_index != 1) return false;
  const CameraCalib& camera = camera_index == 0 ? calib.left : calib.right;
  const auto& values = camera.intrinsics;
  SetParams({static_cast<double>(camera.width), static_cast<double>(camera.height), values[0], values[1], values[2],
             values[3]});
  std::copy(values.begin() + 4, values.end(), coefficients_.begin());
  return true;
}

bool BrownCamera::AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const {
  normalised_raw = BrownDistort(normalised_ideal, coefficients_);
  return true;
}

bool BrownCamera::RemoveDistortion(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return BrownUndistort(normalised_raw, coefficients_, normalised_ideal);
}
