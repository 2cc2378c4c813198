#pragma once

#include <cstddef>
#include <string_view>

/// What OpenCV's parser of documents cannot be given, found in the text before it gets it.
namespace documents {

enum class Syntax { kNone, kJson, kYaml, kXml };

/// As OpenCV tells them apart, whatever the file's name.
Syntax syntaxOf(std::string_view text);

/// Marks that may open a further level: brackets, tags, and in YAML colons and dashes that begin no number. Counted
/// without regard to what closes them or stands in quotes: never less than the parser's depth.
std::size_t openingsOf(std::string_view text, Syntax syntax);

/// What the parser does not come back from, or reads past, in words for an error text; or null. Base64 data of no
/// lawful type are read without an end; a NUL hides the rest of its line, NULs behind the text do not matter; where XML
/// ends in the middle of a tag, a null pointer is followed, and an XML element of the type "str" has no lawful length.
const char* trapIn(std::string_view text, Syntax syntax);

}  // namespace documents
