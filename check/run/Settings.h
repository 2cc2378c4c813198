#pragma once

#include <vector>

#include "input/PolarConfig.h"
#include "polarline/check.h"

namespace polarline {

/// Every key with its value, in the order of the list of keys.
std::vector<Setting> settingsOf(const PolarConfig& config);

}  // namespace polarline
