#pragma once

#include <memory>
#include <string>

#include "platform/WholeFile.h"

namespace polarline {

/// A path to a file that every reader of the library takes: OpenCV's storage reads none with a line end or a question
/// mark in its name, and the library takes a backslash for a separator. Such a file is reached by a link in the
/// system's temporary folder, which is gone at the end of the object's life.
class PlainPath {
 public:
  explicit PlainPath(const std::string& path = {});

  const std::string& get() const { return path_; }

 private:
  std::unique_ptr<whole_file::PartialFolder> folder_;
  std::string path_;
};

}  // namespace polarline
