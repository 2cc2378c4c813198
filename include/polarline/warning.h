#pragma once

#include <string>

namespace polarline {

/// What a result should not be used without knowing.
struct Warning {
  std::string code;    ///< A stable word; `polarline explain` tells more of it.
  std::string text;    ///< What was found, with its numbers.
  std::string advice;  ///< What to do.
  int pair = -1;       ///< Position of the pair in the list; -1: of the whole.
};

}  // namespace polarline
