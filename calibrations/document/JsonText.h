#pragma once

#include <string>

#include "calibrations/document/Value.h"

namespace calibrations {

/// The value of a JSON text. Throws `polarline::InputError`.
Value valueOfJson(const std::string& text, const std::string& path);

}  // namespace calibrations
