#pragma once

#include "camera/LensModel.h"
#include "input/StereoCalibParams.h"

/// Focal lengths and principal point (pixels) and lens coefficients of one camera, as the evaluations take them: in
/// single precision.
struct CameraFloats {
  float fx = 0.0F, fy = 0.0F, cx = 0.0F, cy = 0.0F;
  float k1 = 0.0F, k2 = 0.0F, k3 = 0.0F, k4 = 0.0F, k5 = 0.0F, k6 = 0.0F;
  float p1 = 0.0F, p2 = 0.0F;

  bool operator==(const CameraFloats&) const = default;
};

/// The numbers of a calibration, narrowed. Coefficients that the model has no use for are 0, since the evaluations
/// always read all eight. Meant: k4 is kept for every model, also for Brown with five coefficients.
CameraFloats cameraFloatsOf(const CameraCalib& camera, LensModel model);
