#pragma once

#include <array>

#include "polarline/refine.h"

namespace polarline {

/// Every state of a dot that was not refined.
inline constexpr std::array kUnrefinedStates = {DotState::kClipped, DotState::kCovered, DotState::kOverlapped,
                                                DotState::kUnclear};

/// The state in the document's word.
constexpr const char* nameOf(DotState state) {
  switch (state) {
    case DotState::kRefined:
      return "refined";
    case DotState::kClipped:
      return "clipped";
    case DotState::kCovered:
      return "covered";
    case DotState::kOverlapped:
      return "overlapped";
    case DotState::kUnclear:
      return "unclear";
  }
  return "unclear";
}

}  // namespace polarline
