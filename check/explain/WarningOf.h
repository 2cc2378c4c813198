#pragma once

#include <string>

#include "polarline/warning.h"

namespace polarline {

/// A warning with the advice that its code is explained with.
Warning warningOf(const std::string& code, const std::string& text, int pair = -1);

}  // namespace polarline
