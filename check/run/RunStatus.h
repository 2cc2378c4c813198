#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>

#include "polarline/check.h"
#include "polarline/exit_code.h"

namespace polarline {

/// A status in the words of its explanation, its text replaced unless the other one is empty.
Status statusOf(const std::string& code, const std::string& text, int exit_code);

/// A status of the library; its own error text stands behind in brackets.
Status statusOf(std::int32_t code, const std::string& error_text);

/// A table was read behind its end.
struct BeyondTable {
  std::size_t place = 0;
  std::size_t size = 0;  ///< Entries of the table.
};

/// Of an exception that says so.
std::optional<BeyondTable> beyondTable(const std::exception& error);

/// What an exception says, on one line and without the places in the code that OpenCV names.
std::string textOf(const std::exception& error);

}  // namespace polarline
