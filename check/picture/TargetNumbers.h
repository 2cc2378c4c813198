#pragma once

#include <string>

namespace polarline {

/// Looks at rows, cols and step of a target as they are written, before the detector narrows them: what is not a number
/// is 0 to it, and -3 rows are 65533. Throws `InputError` with the key, what was found and what was wanted. Call it for
/// a target that the detector has taken.
/// @param target The path, or the text itself.
/// @param place  What a message calls it.
void requireBoardNumbers(const std::string& target, const std::string& place);

}  // namespace polarline
