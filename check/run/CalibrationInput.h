#pragma once

#include <string>
#include <vector>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "check/set/InputFile.h"
#include "input/StereoCalibParams.h"
#include "polarline/warning.h"

namespace polarline {

/// Throws `InputError` for one of which no figure can come.
StereoCalibParams readCalibration(const InputFile& file, std::vector<Warning>& warnings);

/// The five numbers of pairs that were rectified elsewhere: focal, baseline, cx, cy, disparity offset, by commas;
/// lines that begin with # are left out.
RectifiedParams readRectified(const InputFile& file);

}  // namespace polarline
