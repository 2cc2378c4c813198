#pragma once

#include <string>

namespace binding {

/// What `help()` tells of a figure of a pair: unit and meaning, as `polarline explain` has them, shape and range.
std::string figureText(const std::string& name);

}  // namespace binding
