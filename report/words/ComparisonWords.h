#pragma once

#include <string>
#include <vector>

#include "report/measure/Comparing.h"

namespace polarline {

/// What differs between checks and what does not, in sentences.
std::string comparisonWords(const std::vector<std::string>& titles, const std::vector<ComparedFigure>& figures);

}  // namespace polarline
