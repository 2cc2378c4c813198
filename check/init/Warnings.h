#pragma once

#include <string>
#include <vector>

#include "polarline/warning.h"

namespace init {

/// One code that the making of a set warns with, for those who list and explain them.
struct WarningCode {
  const char* code;
  const char* meaning;
  const char* advice;
};

/// All of them.
const std::vector<WarningCode>& warningCodes();

/// A warning of the list. Throws `std::out_of_range` for a code that is not in it.
polarline::Warning warning(const std::string& code, const std::string& text, int pair = -1);

}  // namespace init
