#pragma once

#include <cstdint>
#include <string>

#include "input/StereoCalibParams.h"

/// Reads the first two cameras of a binary calibration file and the extrinsics of the second; a camera that the file
/// lacks is set to zero. The status of the load.
std::int32_t loadStereoCalibration(const std::string& path, StereoCalibParams& calib);

/// Reads the first two cameras of a binary calibration file, the extrinsics of the second, and writes the tables as
/// text beside the file. A file that does not load is reported on the console; a camera that the file lacks is set to
/// zero.
void readBinaryCalibration(const std::string& path, StereoCalibParams& calib);
