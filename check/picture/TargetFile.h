#pragma once

#include <string>

#include "Tallowfen/src/RingTarget.h"

/// Configures the target from a path or from the text itself, as a run does. Throws `polarline::InputError` where a run
/// would fail or would quietly take the board of the defaults: a file that is missing, has another ending or does not
/// parse, and a board type that is none.
void loadTarget(const std::string& target, kestrune::RingTarget& into);
