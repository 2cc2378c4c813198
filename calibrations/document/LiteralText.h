#pragma once

#include <string>

#include "calibrations/document/Value.h"

namespace calibrations {

/// The value of a Python literal of dictionaries, lists, tuples, texts, bytes, numbers, True, False and None, with
/// comments and trailing commas. What a bytes literal holds is skipped. Throws `polarline::InputError` with the line.
Value valueOfLiteral(const std::string& text, const std::string& path);

}  // namespace calibrations
