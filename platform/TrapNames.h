#pragma once

#include <cstddef>

namespace documents {

/// Most levels of a document inside each other. The parser goes down the stack with each, so that a file of nothing but
/// brackets would end the process; this many need 4 MB at most, and no real document comes near.
inline constexpr std::size_t kMostLevels = 10000;

inline constexpr const char* kTooDeep = "more than 10000 levels inside each other";
inline constexpr const char* kBase64 = "base64 data";

}  // namespace documents
