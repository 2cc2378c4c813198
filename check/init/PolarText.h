#pragma once

#include <map>
#include <string>

#include "input/PolarConfig.h"

namespace init {

/// By a key's name why it has the value that it has in this set.
using KeyNotes = std::map<std::string, std::string>;

/// The text of a polar configuration: every key under a comment that says what it does and what may be written, and
/// why it was chosen where a note says so. Read again it gives the same record.
std::string polarText(const PolarConfig& config, const std::string& title, const KeyNotes& notes = {});

}  // namespace init
