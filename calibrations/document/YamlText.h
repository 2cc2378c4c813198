#pragma once

#include <string>
#include <vector>

#include "calibrations/document/Value.h"

namespace calibrations {

/// The documents of a YAML text that hold anything, also of what OpenCV writes in YAML. Throws
/// `polarline::InputError`.
std::vector<Value> valuesOfYaml(const std::string& text, const std::string& path);

}  // namespace calibrations
