#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace init {

/// Whether a name fits a pattern: `*` stands for any characters, `?` for one, `[a-c]` for one of a list and `[!a-c]`
/// for one of no list. A leading dot is fitted by a dot only.
bool fitsPattern(std::string_view name, std::string_view pattern);

/// The pictures that a caller names: files, folders (all files in them whose extension is one of a picture) and
/// patterns as above in every folder and name of a path; `**` as a folder stands for any folders, also none. A file
/// that bears the name of a pattern is that file. In natural order, each once.
///
/// `side` is "left" or "right", for the texts. Throws `InputError` for a name without any picture.
std::vector<std::string> picturesNamed(const std::vector<std::string>& named, const std::string& side);

}  // namespace init
