#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/FileHandle.h"

/// A temporary file without a name, written piece by piece and read back once it is whole. Failures throw
/// `polarline::OutputError`.
class UnnamedFile {
 public:
  UnnamedFile();

  /// A piece that could not be written is missing for good: from then on every call throws, also once there is space
  /// again.
  void append(std::string_view content);
  /// All that was appended, from the first to the last, piece by piece.
  void read(const std::function<void(const std::string& piece)>& take);

 private:
  [[noreturn]] void fail();

  FileHandle file_;
  int error_ = 0;  ///< Of the first piece that could not be written.
};
