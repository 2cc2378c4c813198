#pragma once

#include <cstddef>
#include <string_view>

namespace utf8 {

/// Bytes of the character that begins the text (RFC 3629: no shorter form, no surrogate, none beyond U+10FFFF); 0 where
/// none does, as before a text without an end.
std::size_t length(std::string_view text);

/// Whether all of it are such characters: what JSON and an SQLite text have to be.
bool isValid(std::string_view text);

}  // namespace utf8
