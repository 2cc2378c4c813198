#pragma once

#include <locale>
#include <sstream>
#include <string>

/// String streams whose numbers do not depend on the locale of the process.
namespace classic {

inline std::istringstream input(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  return stream;
}

inline std::ostringstream output() {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  return stream;
}

}  // namespace classic
