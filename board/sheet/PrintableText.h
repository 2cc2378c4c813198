#pragma once

#include <string>
#include <string_view>

namespace boards {

/// The text as UTF-8 that every printed form takes: bytes that are none become U+FFFD, control characters blanks.
std::string printable(std::string_view text);

}  // namespace boards
