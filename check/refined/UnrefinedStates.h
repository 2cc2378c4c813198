#pragma once

#include <array>

#include "polarline/refine.h"

namespace polarline {

/// Every state of a dot that was not refined.
inline constexpr std::array kUnrefinedStates = {DotState::kClipped, DotState::kCovered, DotState::kOverlapped,
                                                DotState::kUnclear};

}  // namespace polarline
