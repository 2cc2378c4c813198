#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

/// A file that one process has alone, of all that share a folder, also over a network. It is there with its whole
/// content or not at all, and goes with the object, or when the process ends at a signal.
class ExclusiveFile {
 public:
  /// Empty: somebody has it. Throws `polarline::OutputError` where nobody can have it.
  static std::unique_ptr<ExclusiveFile> take(const std::filesystem::path& place, std::string_view content);

  ExclusiveFile(const ExclusiveFile&) = delete;
  ExclusiveFile& operator=(const ExclusiveFile&) = delete;
  ~ExclusiveFile();

  /// Gives this very file the time that its device counts; one that took its place meanwhile stays as it is.
  void touch() const;
  /// Whether this very file still stands in its place.
  bool isThere() const;

 private:
  ExclusiveFile(std::filesystem::path place, int handle);

  std::filesystem::path place_;
  int handle_;
};
