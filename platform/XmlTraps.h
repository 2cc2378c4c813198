#pragma once

#include <string_view>

namespace documents {

/// What keeps an XML text from OpenCV's parser, in words for an error text, or null: too many elements inside each
/// other, one of the type "binary", whose base64 data may be read without an end, one of the type "str", which has no
/// lawful length, and a text that ends behind an equals sign or an ampersand, where the parser follows a null pointer
/// or leaves its line.
const char* trapInXml(std::string_view text);

}  // namespace documents
