#pragma once

#include <fmt/format.h>

#include <cstddef>
#include <string>

/// "1 ring", "4 rings".
inline std::string counted(std::size_t count, const char* thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

/// "1 was found", "2 were found".
inline std::string wereFound(std::size_t count) {
  return fmt::format("{} {} found", count, count == 1 ? "was" : "were");
}
