#pragma once

#include <string>
#include <utility>

namespace polarline {

/// A file that a check reads: where its bytes are, and what it is called before people. The two differ where the bytes
/// are a copy.
struct InputFile {
  std::string path;
  std::string shown;

  InputFile() = default;
  /// The file itself; meant to be implicit, as most files are.
  InputFile(const std::string& file) : path(file), shown(file) {}
  InputFile(std::string copy, std::string file) : path(std::move(copy)), shown(std::move(file)) {}
};

}  // namespace polarline
