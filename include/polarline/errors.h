#pragma once

#include <stdexcept>
#include <string>

#include "polarline/api.h"

/// The failures that the `polarline` functions throw. Each text is complete: a front prints it as it stands.
namespace polarline {

/// What a caller named can't be used: exit code 2 of the command.
class POLARLINE_API InputError : public std::runtime_error {
 public:
  /// @param place   The file, and behind ": " the line, key or entry, where there is one.
  /// @param problem What was found and what was wanted.
  InputError(const std::string& place, const std::string& problem)
      : std::runtime_error(place.empty() ? problem : place + ": " + problem) {}
  explicit InputError(const std::string& problem) : InputError("", problem) {}
};

/// A result could not be written: exit code 4. It may succeed when tried again.
class POLARLINE_API OutputError : public std::runtime_error {
 public:
  OutputError(const std::string& path, const std::string& reason) : std::runtime_error(path + ": " + reason) {}
};

}  // namespace polarline
