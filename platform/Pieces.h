#pragma once

#include <string>
#include <vector>

/// The pieces of a text between separators. Empty pieces count, except one behind the last separator: "a,,b," gives
/// "a", "", "b".
std::vector<std::string> piecesOf(const std::string& text, char separator);

/// The words of a text between runs of any of the given characters; none is empty.
std::vector<std::string> wordsOf(const std::string& text, const char* blanks);
