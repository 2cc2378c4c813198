#pragma once

#include <string>

#include "input/PolarConfig.h"

namespace polarline {

/// Keys of the polar configuration without which an evaluation that it switches on ends the run, as "has no A, B, which
/// SWITCH wants"; empty where none is missing. Whether the run comes to that evaluation depends on the pictures.
std::string missingKeys(const PolarConfig& config);

}  // namespace polarline
