#pragma once

#include <string>
#include <string_view>

#include "Tallowfen/src/RingTarget.h"

namespace polarline {

/// Whether a path ends as one of a target does; the library takes any other for a text with keys.
bool isTargetName(std::string_view path);

}  // namespace polarline

/// Configures the target from a path or from the text itself, as a run does. Throws `polarline::InputError` where a run
/// would fail or would quietly take the board of the defaults: a file that is missing, has another ending or does not
/// parse, and a board type that is none.
void loadTarget(const std::string& target, kestrune::RingTarget& into);
