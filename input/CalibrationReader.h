#pragma once

#include <cstdint>
#include <string>

#include "input/StereoCalibParams.h"

/// The kind of a calibration file by the text behind its path's last dot: 1 `json`, 2 `yaml`, 3 `txt`, 4 `bin`,
/// otherwise 0. Upper case is another text.
std::int32_t CalibFileType(const std::string& path);

/// Reads the calibration of a stereo pair from a JSON document or a binary file; the extension of the path decides.
///
/// `calib` is not cleared, except that both grid sizes are set to zero first. A binary file also leaves its tables as
/// four text files beside it. Returns 0, also for a binary file that did not load (its cameras are at zero then),
/// `polar_status::kCalibrationType` for another extension, or `polar_status::kCalibrationUnreadable`; `errorText` is
/// set only when a JSON document does not open. A malformed document raises OpenCV's exception.
std::int32_t ReadCalibResult(const std::string& path, StereoCalibParams& calib, std::string& errorText);
