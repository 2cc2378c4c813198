#pragma once

#include <opencv2/core.hpp>

#include "camera/CalibratedCamera.h"

/// Rz Rx Ry of three angles in radians.
cv::Matx33d rotationOf(double rx, double ry, double rz);

/// Both cameras of a calibration in double precision, and X_right = R X_left + T.
struct CalibratedPair {
  CalibratedPair(const StereoCalibParams& calib, LensModel model);

  CalibratedCamera left, right;
  cv::Matx33d R;
  cv::Vec3d T;  ///< Board unit.
};
