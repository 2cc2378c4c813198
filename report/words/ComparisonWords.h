#pragma once

#include <string>
#include <vector>

#include "report/measure/Comparing.h"

namespace polarline {

/// What differs between checks and what does not, in sentences.
std::string comparisonWords(const std::vector<std::string>& titles, const std::vector<ComparedFigure>& figures,
                            const std::vector<std::string>& inputs = {});

/// Roles of the files that differ between two checks; all pictures together are "pictures".
std::vector<std::string> changedInputs(const Check& first, const Check& other);

/// The same in a sentence with the beginnings of the hashes; empty where a check tells no files.
std::string inputsWords(const Check& first, const Check& other);

}  // namespace polarline
