#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "polarline/warning.h"

namespace diagnose {

/// Something that was found in a pair, or in one of its pictures.
struct Finding {
  static constexpr int kPair = -1;  ///< Of no single picture.

  std::size_t pair = 0;
  int side = kPair;     ///< 0: left, 1: right.
  double weight = 0.0;  ///< The heaviest one tells its text.
  std::string text;
};

/// Tells findings of one cause once: the heaviest one's text, and behind it where. None without findings.
/// @param pairs How many pairs were looked at.
std::optional<polarline::Warning> told(const std::string& code, const std::vector<Finding>& findings,
                                       std::size_t pairs);

}  // namespace diagnose
