#pragma once

#include <string>
#include <string_view>

namespace polarline {

/// A text as HTML shows it: nothing in it can become markup. Bytes that are no UTF-8 become U+FFFD.
std::string htmlOf(std::string_view text);

/// JSON that may stand inside a script element: no `<` ends it, and no line end of other scripts is in it.
std::string scriptJson(std::string_view json);

}  // namespace polarline
