#pragma once

#include <optional>
#include <string>

/// Values of the polar configuration that its reader takes without complaint, although they say nothing to it.
namespace polarline {

/// What the value should have been, as "a whole number"; none for a value that the reader understands and for a key
/// that is not in the list. What follows a number has to be blanks or a comment, though the reader drops the rest.
std::optional<std::string> wantedInstead(const std::string& key, const std::string& value);

}  // namespace polarline
