#pragma once

#include <string>

#include "tools/polarline/manual/CommandTree.h"

/// Completion scripts: subcommands, their options, and the values of these. Each is a file for its shell's own folder.
namespace manual {

std::string bashCompletion(const Command& polarline);
std::string zshCompletion(const Command& polarline);
std::string fishCompletion(const Command& polarline);

}  // namespace manual
