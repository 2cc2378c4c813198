#pragma once

#include <string>
#include <vector>

namespace polarline {

/// The names that were probably meant: at most three, the nearest first, by the number of letters to change
/// (Levenshtein 1966); none that is farther off than a third of its length.
std::vector<std::string> nearest(const std::string& name, const std::vector<std::string>& names);

/// "; did you mean a, b or c?", empty for no name.
std::string offer(const std::vector<std::string>& names);

}  // namespace polarline
