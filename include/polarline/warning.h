#pragma once

#include <string>

namespace polarline {

/// Something that a user should look at, although the work went on. Each code is a word of its own in snake_case that
/// does not change from version to version.
struct Warning {
  std::string code;
  std::string text;    ///< What was found, and where.
  std::string advice;  ///< What to do about it.
  int pair = -1;       ///< Index of the pair it is about, from 0; -1: of none.
};

}  // namespace polarline
