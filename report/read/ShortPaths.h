#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/read/Json.h"

namespace polarline {

/// The last part of a path, whichever separators it has.
std::string fileName(std::string_view path);

/// "/x/name", "\x\name" or "C:\name".
bool isAbsolute(std::string_view path);

/// A text in which each of the paths that it is known to hold, and whatever else looks like a path from the root, from
/// the folder at hand or from a home, is told by its file name. Where such a path ends is not always plain, as names of
/// folders have blanks, too: what may still be a folder goes, even if a word of the sentence goes with it.
/// @param known The longest first.
std::string withoutFolders(std::string_view text, const std::vector<std::string>& known);

/// Tells every file of a document of a check by its name.
/// @param others Paths that its texts may hold besides those that it names.
void shortenPaths(Json& document, const std::vector<std::string>& others);

}  // namespace polarline
