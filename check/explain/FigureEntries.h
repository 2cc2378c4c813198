#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "polarline/explain.h"

namespace polarline {

/// Before the name of a figure: the one from refined centres.
inline constexpr std::string_view kRefinedPrefix = "refined.";

/// Every figure that a limit can judge: what it is, its unit, and how a limit on it is written.
std::vector<Explanation> figureExplanations();

/// Whether the values of a figure, or their mean, may be below 0 as well as above, and 0 is what one wants. False for
/// what is no figure.
bool hasSign(const std::string& figure);

}  // namespace polarline
