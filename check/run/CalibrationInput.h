#pragma once

#include <string>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "input/StereoCalibParams.h"

namespace polarline {

StereoCalibParams readCalibration(const std::string& path);

/// The five numbers of pairs that were rectified elsewhere: focal, baseline, cx, cy, disparity offset, by commas;
/// lines that begin with # are left out.
RectifiedParams readRectified(const std::string& path);

}  // namespace polarline
