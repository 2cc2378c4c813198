#pragma once

#include <string>

#include "platform/WarningTable.h"

namespace diagnose {

/// Every code of a warning that an input makes the figures worthless, for those who list and explain them.
const warnings::Table& warningCodes();

/// A warning of the list. Throws `std::out_of_range` for a code that is not in it.
polarline::Warning warning(const std::string& code, const std::string& text, int pair = -1);

}  // namespace diagnose
