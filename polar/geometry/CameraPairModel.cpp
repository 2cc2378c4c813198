#include "polar/geometry/CameraPairModel.h"

namespace {

cv::Point2d distortedBy(const CameraIntrinsicsBase& camera, const cv::Point2d& normalised_ideal) {
  cv::Point2d normalised_raw;
  camera.AddDistortion(normalised_ideal, normalised_raw);
  return normalised_raw;
}

}  // namespace

BrownPairModel::BrownPairModel(const CameraFloats& left_camera, const CameraFloats& right_camera)
    : left_(brownCoefficientsOf(left_camera)), right_(brownCoefficientsOf(right_camera)) {}

bool BrownPairModel::undistortLeft(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return BrownUndistort(normalised_raw, left_, normalised_ideal);
}

bool BrownPairModel::undistortRight(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return BrownUndistort(normalised_raw, right_, normalised_ideal);
}

cv::Point2d BrownPairModel::distortLeft(const cv::Point2d& normalised_ideal) const {
  return BrownDistort(normalised_ideal, left_);
}

cv::Point2d BrownPairModel::distortRight(const cv::Point2d& normalised_ideal) const {
  return BrownDistort(normalised_ideal, right_);
}

bool ObjectPairModel::undistortLeft(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return left_.RemoveDistortion(normalised_raw, normalised_ideal);
}

bool ObjectPairModel::undistortRight(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const {
  return right_.RemoveDistortion(normalised_raw, normalised_ideal);
}

cv::Point2d ObjectPairModel::distortLeft(const cv::Point2d& normalised_ideal) const {
  return distortedBy(left_, normalised_ideal);
}

cv::Point2d ObjectPairModel::distortRight(const cv::Point2d& normalised_ideal) const {
  return distortedBy(right_, normalised_ideal);
}
