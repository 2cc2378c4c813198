#pragma once

#include <string>

#include "tools/polarline/manual/CommandTree.h"

namespace CLI {
class Option;
}

namespace manual {

/// What the help calls the value, such as "FILE"; for a choice "TEXT".
std::string valueName(const CLI::Option& option);

/// What may be offered for an option or a positional: paths where its name tells so, the words of a choice, and what
/// the library has names for: figures of a limit, presets, statuses and warnings.
Values valuesOf(const CLI::Option& option);

}  // namespace manual
