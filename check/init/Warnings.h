#pragma once

#include <string>

#include "platform/WarningTable.h"

namespace init {

/// Every code that only the making of a set warns with.
const warnings::Table& warningCodes();

/// A warning of the list, or of those that a check gives, too. Throws `std::out_of_range` for any other code.
polarline::Warning warning(const std::string& code, const std::string& text, int pair = -1);

}  // namespace init
