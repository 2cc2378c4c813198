#pragma once

#include <string_view>

namespace documents {

/// What keeps a YAML text from OpenCV's parser, in words for an error text, or null: too many levels, base64 data, and
/// what follows. The parser takes three characters for the mark of a document's end wherever the root came to its own
/// end, and looks for the next document's mark without an end when a dash stands there instead; so the root has to be
/// of the block style and end at "..." or with the text. A colon where a line's key should begin, and a text in quotes
/// that ends with an escape and the document, lead it out of its line.
const char* trapInYaml(std::string_view text);

}  // namespace documents
