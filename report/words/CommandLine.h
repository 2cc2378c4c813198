#pragma once

#include <string>
#include <vector>

namespace polarline {

/// The words of a command as one line that a shell takes; unless `has_paths`, without the folders of the files in it.
std::string commandLine(const std::vector<std::string>& words, bool has_paths);

}  // namespace polarline
