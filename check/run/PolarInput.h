#pragma once

#include <set>
#include <string>
#include <vector>

#include "check/set/InputFile.h"
#include "input/PolarConfig.h"
#include "polarline/warning.h"

namespace polarline {

struct PolarInput {
  PolarConfig config;
  std::set<std::string> keys;  ///< That the file or the command says.
};

/// The polar configuration of a set, with the keys that are set for this run only.
PolarInput readPolar(const InputFile& file, const std::vector<std::string>& settings, std::vector<Warning>& warnings);

}  // namespace polarline
