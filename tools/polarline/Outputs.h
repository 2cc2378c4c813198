#pragma once

#include <string>
#include <vector>

namespace command {

/// A file that a result option names.
struct Output {
  const char* option;  ///< "--json"
  std::string path;    ///< Empty or "-": no file.
};

/// Throws `polarline::InputError` where a result would replace an input, or two results each other; by the file itself,
/// whatever its name.
void requireSeparate(const std::vector<Output>& outputs, const std::vector<std::string>& inputs);

}  // namespace command
