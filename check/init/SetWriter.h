#pragma once

#include <map>
#include <string>
#include <vector>

#include "check/init/ListNames.h"

namespace init {

/// Contents of files by their names.
using SetFiles = std::map<std::string, std::string>;

/// Throws `InputError` for a place that is no folder and can't become one.
void requirePlace(const std::string& folder);

/// Throws `InputError` that names the files of a set which are in the folder already, save those that hold just what
/// `kept` says of them. Limits are in the way of new ones only.
void refuseOldSet(const std::string& folder, const SetFiles& kept, bool with_limits = false);

/// Writes the files, links and copies of a set. A new folder appears whole or not at all. In one that is there each
/// file does, once all have been written beside; files of an earlier set that would take the place of new ones go.
/// Returns the names that were written. Throws `OutputError`.
std::vector<std::string> writeSet(const std::string& folder, const SetFiles& files,
                                  const std::vector<ListedLine>& lines);

/// Throws `InputError` that names the files which links or copies of pictures would replace.
void refuseOldPictures(const std::string& folder, const std::vector<ListedLine>& lines);

}  // namespace init
