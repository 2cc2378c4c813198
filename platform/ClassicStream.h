#pragma once

#include <locale>
#include <sstream>
#include <string>

/// String streams whose numbers do not depend on the locale of the process.
namespace classic {

/// What is thrown inside of a read passes: kept in the stream, as a stream does by itself, it would look like a text
/// that holds no value.
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
