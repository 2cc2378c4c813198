#pragma once

#include <string>
#include <vector>

#include "input/PolarConfig.h"
#include "polarline/warning.h"

namespace polarline {

/// The polar configuration of a set, with the keys that are set for this run only.
PolarConfig readPolar(const std::string& path, const std::vector<std::string>& settings,
                      std::vector<Warning>& warnings);

}  // namespace polarline
