#pragma once

#include <string>

#include "tools/polarline/manual/CommandTree.h"

namespace manual {

/// Text as a page shows it: what would be a request or an escape stands for itself, and "-" can be copied.
std::string roff(const std::string& text);

/// The page polarline(1).
std::string mainPage(const Command& polarline, const std::string& version);

/// The page polarline-NAME(1) of a subcommand.
std::string subcommandPage(const Command& command, const std::string& version);

}  // namespace manual
