#pragma once

#include <string>
#include <vector>

#include "report/view/CheckView.h"

namespace polarline {

/// A number as it stands there; a dash for what is none.
std::string shownNumber(double value);

/// What stands on the page without its script, as HTML: of each check the verdict, the limits and the figures.
std::string staticPart(const std::vector<CheckView>& views);

}  // namespace polarline
