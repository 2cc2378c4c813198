#pragma once

#include "polarline/refine.h"

namespace binding {

/// What became of a dot, in the word of the JSON document.
inline const char* nameOf(polarline::DotState state) {
  using polarline::DotState;
  switch (state) {
    case DotState::kRefined:
      return "refined";
    case DotState::kClipped:
      return "clipped";
    case DotState::kCovered:
      return "covered";
    case DotState::kOverlapped:
      return "overlapped";
    default:
      return "unclear";
  }
}

}  // namespace binding
