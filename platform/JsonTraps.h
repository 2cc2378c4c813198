#pragma once

#include <string_view>

namespace documents {

/// What keeps a JSON text from OpenCV's parser, in words for an error text, or null: too many levels, and a value that
/// begins as base64 data do. What stands behind the root is not read.
const char* trapInJson(std::string_view text);

}  // namespace documents
