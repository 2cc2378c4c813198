#pragma once

#include <string_view>

namespace polarline {

/// The page without its data: report/page.html.
std::string_view pageTemplate();

}  // namespace polarline
