#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace boards {

/// The text as UTF-8 that every printed form takes: bytes that are none become U+FFFD, control characters blanks.
std::string printable(std::string_view text);

/// Characters of clean UTF-8.
std::size_t characters(std::string_view text);

}  // namespace boards
