#pragma once

#include <string>

#include "input/PolarConfig.h"

namespace init {

/// The text of a polar configuration: every key under a comment that says what it does and what may be written. Read
/// again it gives the same record.
std::string polarText(const PolarConfig& config, const std::string& title);

}  // namespace init
