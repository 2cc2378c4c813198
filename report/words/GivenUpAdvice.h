#pragma once

#include <string>

#include "polarline/check.h"

namespace polarline {

/// What is known of the status that a pair was given up with; all empty for a finished pair and an unknown status.
struct GivenUpAdvice {
  std::string name;     ///< "too_few_markers".
  std::string meaning;  ///< A sentence.
  std::string advice;   ///< With the command that shows what was seen, where it names one.
};

/// @param without_folders The files of the check are told by their names only.
GivenUpAdvice givenUpAdvice(const Check& check, const PairCheck& pair, bool without_folders);

/// An advice whose command names files without their folders says where it is run.
std::string inSetFolder(std::string advice, bool without_folders);

}  // namespace polarline
