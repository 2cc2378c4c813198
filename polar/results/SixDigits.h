#pragma once

#include <cstddef>

inline constexpr std::size_t kLongestNumber = 32;

/// The characters that the classic stream makes of a number in its default format, as do `std::to_chars` in general
/// notation of six digits and `%g`, several times faster for most numbers. Needs room for `kLongestNumber`, of which
/// all may be overwritten; gives back the end.
char* writeSixDigits(char* to, double value);
