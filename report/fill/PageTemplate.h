#pragma once

#include <string_view>

namespace polarline {

/// The page without its data: report/page.html.
std::string_view pageTemplate();

/// The same of the fleet's page: report/fleet.html.
std::string_view fleetTemplate();

}  // namespace polarline
