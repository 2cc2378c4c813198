#pragma once

#include <string_view>

namespace polarline::results {

/// Whether the bytes are UTF-8 (RFC 3629): what JSON and an SQLite text have to be.
bool isUtf8(std::string_view bytes);

}  // namespace polarline::results
