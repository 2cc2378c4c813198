#pragma once

#include <string>
#include <vector>

#include "check/run/PolarInput.h"
#include "input/PolarConfig.h"
#include "polarline/warning.h"

namespace polarline {

/// Keys of the polar configuration without which an evaluation that it switches on ends the run, as "has no A, B, which
/// SWITCH wants"; empty where none is missing. Whether the run comes to that evaluation depends on the pictures.
std::string missingKeys(const PolarConfig& config);

/// Warns of keys that a run goes on without: those that an evaluation reads which is on, and switches of evaluations
/// beside others that are there. Who leaves a line out may mean that; a file that was cut off does not.
void warnOfMissingKeys(const std::string& path, const PolarInput& polar, bool is_rectified,
                       std::vector<Warning>& warnings);

}  // namespace polarline
