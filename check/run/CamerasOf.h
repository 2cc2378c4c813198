#pragma once

#include "PolarLinePrecision/CalibrationRecords.h"
#include "input/StereoCalibParams.h"
#include "polarline/check.h"

/// The cameras of a run as its document tells them.
namespace polarline {

/// Throws `InputError` for a type that is no lens model: no camera would be loaded, and no picture be warped.
Cameras camerasOf(int type, const StereoCalibParams& calib);
Cameras camerasOf(const RectifiedParams& rectified);

}  // namespace polarline
