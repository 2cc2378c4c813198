#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace polarline::results {

/// By what a file is known again without reading it. A store's files appear by renaming, so that one that was written
/// anew has another inode, whatever the clock says.
struct FileState {
  std::int64_t size = -1;     ///< -1: there is none.
  std::int64_t modified = 0;  ///< Nanoseconds.
  std::int64_t inode = 0;

  bool isThere() const { return size >= 0; }
  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Of the file at a path; none where there is none.
FileState stateOf(const std::filesystem::path& path);

struct StoredFile {
  FileState state;  ///< Of what was read, also when the path is another file's by now.
  std::string text;
};

/// Reads a file whole. One that is not there, or gone meanwhile, has no state. Throws `std::system_error`.
StoredFile readStoredFile(const std::filesystem::path& path);

}  // namespace polarline::results
