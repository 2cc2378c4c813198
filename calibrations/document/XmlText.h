#pragma once

#include <string>

#include "calibrations/document/Value.h"

namespace calibrations {

/// The value of a text in OpenCV's XML storage. Throws `polarline::InputError`.
Value valueOfXml(const std::string& text, const std::string& path);

}  // namespace calibrations
