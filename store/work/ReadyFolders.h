#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "polarline/batch.h"

namespace polarline {

/// A folder in a watched one.
struct WatchedFolder {
  std::string path;
  bool is_ready = false;
  std::filesystem::file_time_type ready;  ///< When that was said.
};

/// The folders in it, those that were ready first first. Hidden ones are left out, as copies are made under such names.
std::vector<WatchedFolder> foldersIn(const std::string& folder);

/// A ready folder as a set, with what its file `ready` tells. Throws `InputError`.
BatchSet readySet(const WatchedFolder& folder);

}  // namespace polarline
