#pragma once

#include <string>
#include <vector>

#include "report/view/CheckView.h"

namespace polarline {

/// The data of the page as JSON: 'polarline-page/1' of report/web/src/page_data.ts.
std::string pageText(std::vector<CheckView> views, const std::string& made, const std::string& command);

}  // namespace polarline
