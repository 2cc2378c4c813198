#pragma once

#include <vector>

#include "check/set/InputFile.h"
#include "polarline/set.h"

namespace polarline {

/// As the one of a path: the names are relative to the folder of the list, wherever its copy is.
std::vector<ListedPair> listedPairs(const InputFile& file);

}  // namespace polarline
