#pragma once

#include <string>
#include <string_view>

namespace calibrations {

/// A text of a file as a message shows it: in quotes, cut when it is long, without control characters and bytes beyond
/// ASCII.
std::string shown(std::string_view text);

}  // namespace calibrations
