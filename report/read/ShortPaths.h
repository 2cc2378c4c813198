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

/// A text in which each of the paths that it is known to hold, and whatever else looks like an absolute path, is told
/// by its file name.
/// @param known The longest first.
std::string withoutFolders(const std::string& text, const std::vector<std::string>& known);

/// Tells every file of a document of a check by its name.
void shortenPaths(Json& document);

}  // namespace polarline
