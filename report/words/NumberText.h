#pragma once

#include <string>

namespace polarline {

/// A number for the eye: as many digits as count, without an exponent where the size is one that figures have.
std::string numberText(double value, int digits);

}  // namespace polarline
