#pragma once

#include <vector>

#include "polarline/calibration.h"

namespace calibrations {

/// What is odd about a calibration, told from its figures alone.
std::vector<polarline::Warning> oddities(const polarline::Calibration& calibration);

}  // namespace calibrations
