#pragma once

#include <cstdint>
#include <string>

#include "input/StereoCalibParams.h"

/// Reads the intrinsics and extrinsics of a stereo pair from a JSON document. Members that are missing read as 0; image
/// sizes and tables are not in the document and stay as they are. Returns 0 or `polar_status::kCalibrationUnreadable`:
/// the document does not open (only then `errorText` is set) or names no pair of cameras.
std::int32_t readJsonCalibration(const std::string& path, StereoCalibParams& calib, std::string& errorText);
