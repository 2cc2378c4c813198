#pragma once

#include <string>
#include <vector>

#include "polarline/warning.h"

/// The warnings that a layer gives, for those who list and explain them.
namespace warnings {

struct Code {
  const char* code;
  const char* meaning;
  const char* advice;
};
using Table = std::vector<Code>;

/// A warning of the table, with its advice. Throws `std::out_of_range` for a code that is not in it.
polarline::Warning make(const Table& table, const std::string& code, const std::string& text, int pair = -1);

}  // namespace warnings
