#pragma once

#include <string>

namespace polarline::fleet {

/// Numbers by their values, before all other texts: "2" before "10" before "B".
bool isBefore(const std::string& a, const std::string& b);

}  // namespace polarline::fleet
