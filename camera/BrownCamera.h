#pragma once

#include "camera/BrownModel.h"
#include "camera/PinholeCameraIntrinsics.h"

/// A camera object for the Brown model, so that an evaluation written for camera objects takes it like any other.
class BrownCamera final : public PinholeCameraIntrinsics {
 public:
  /// Of size 0.
  explicit BrownCamera(const CameraFloats& camera);

  /// Takes size, focal lengths, principal point and the eight coefficients of one camera of the calibration. Camera
  /// index 0 is left, 1 right; any other gives false and changes nothing.
  bool LoadCalib(StereoCalibParams calib, int camera_index) override;
  /// Always true.
  bool AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const override;
  bool RemoveDistortion(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;

 private:
  BrownCoefficients coefficients_{};
};
