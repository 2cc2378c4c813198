#pragma once

#include <locale>
#include <sstream>
#include <string>

/// String streams whose numbers do not depend on the locale of the process.
namespace classic {

/// An exception inside a read is passed on. A stream by itself would swallow it and look like a text without a value.
inline std::istringstream input(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream.exceptions(std::ios::badbit);
  return stream;
}

inline std::ostringstream output() {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  return stream;
}

}  // namespace classic
