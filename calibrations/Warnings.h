#pragma once

#include <string>

#include "platform/WarningTable.h"

namespace calibrations {

/// Every code that this layer warns with.
const warnings::Table& warningCodes();

/// A warning of the list. Throws `std::out_of_range` for a code that is not in it.
polarline::Warning warning(const std::string& code, const std::string& text);

}  // namespace calibrations
