#pragma once

#include <string>
#include <vector>

namespace polarline {

/// The words of a command as one line that a shell takes; unless `has_paths`, without the folders of the files in it.
/// A title is no path, whatever it says.
std::string commandLine(const std::vector<std::string>& words, bool has_paths);

/// What may be a path in the words of a command.
std::vector<std::string> pathsOfCommand(const std::vector<std::string>& words);

}  // namespace polarline
