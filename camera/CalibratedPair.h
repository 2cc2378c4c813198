#pragma once

#include <opencv2/core.hpp>

#include "camera/CalibratedCamera.h"

/// Both cameras of a calibration in double precision, and X_right = R X_left + T.
struct CalibratedPair {
  /// R = Rz Rx Ry of the calibration's angles.
  CalibratedPair(const StereoCalibParams& calib, LensModel model);

  CalibratedCamera left, right;
  cv::Matx33d R;
  cv::Vec3d T;  ///< Board unit.
};
