#pragma once

#include <string>
#include <utility>
#include <vector>

namespace polarline {

/// Adds "key=value" to what is known of a set. Throws `InputError` for an entry without a key, for a key that is there
/// already and for a time that is none.
/// @param place  Where the entry stands, for messages.
void addMetadata(const std::string& entry, const std::string& place,
                 std::vector<std::pair<std::string, std::string>>& metadata);

}  // namespace polarline
