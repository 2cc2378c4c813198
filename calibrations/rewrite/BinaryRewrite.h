#pragma once

#include <cstdint>
#include <vector>

#include "input/StereoCalibParams.h"

/// The bytes of a binary calibration with the right camera's parameters, tables and pose of `calib`, rounded to the
/// file's floats. All else stays as it is: the left camera, further ones, names, numbers that no reader takes. A check
/// byte is renewed where it was the CRC-8 of what stands before it.
///
/// Precondition: `loadMultiCalibration` takes the bytes, of two cameras or more.
std::vector<std::uint8_t> withRightCamera(std::vector<std::uint8_t> bytes, const StereoCalibParams& calib);
