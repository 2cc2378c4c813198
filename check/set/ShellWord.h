#pragma once

#include <string>

namespace polarline {

/// A word as a shell takes it: as it is, or in quotes.
std::string shellWord(const std::string& word);

}  // namespace polarline
