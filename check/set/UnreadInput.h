#pragma once

#include <stdexcept>
#include <string>

#include "polarline/errors.h"

namespace polarline {

/// A file of a set is not there or can't be reached.
class UnreadInput : public InputError {
 public:
  /// @param place   The file or folder, as messages name it.
  /// @param path    The same as the system finds it.
  /// @param error   What the system said of it: an `errno`.
  UnreadInput(const std::string& place, const std::string& problem, const std::string& path, int error);

  /// It may be there when tried again.
  bool mayReturn() const { return may_return_; }

 private:
  bool may_return_;
};

/// The files of a set are others than those that were read a moment ago.
class ChangedInput : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Of a path that could not be reached. One that is missing from a folder which is there stays so until somebody mends
/// the set, as does a right that is missing; a folder that is away or a server that does not answer comes back.
bool mayComeBack(const std::string& path, int error);

}  // namespace polarline
