#pragma once

#include <string_view>

/// What OpenCV's parser of documents cannot be given, found in the text before it gets it.
namespace documents {

enum class Syntax { kNone, kJson, kYaml, kXml };

/// As OpenCV tells them apart, whatever the file's name.
Syntax syntaxOf(std::string_view text);

/// What the parser does not come back from, or reads past, in words for an error text; or null. Each syntax has its
/// own; in all of them a NUL hides the rest of its line, while NULs behind the text do not matter.
const char* trapIn(std::string_view text);

}  // namespace documents
