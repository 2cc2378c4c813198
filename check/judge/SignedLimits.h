#pragma once

#include <vector>

#include "check/judge/Limit.h"
#include "polarline/warning.h"

namespace polarline {

/// Warns of limits from one side on figures with a sign: the farthest value from 0 on the other side keeps them.
void warnOfSigns(const std::vector<Limit>& limits, std::vector<Warning>& warnings);

}  // namespace polarline
