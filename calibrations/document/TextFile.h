#pragma once

#include <string>

namespace calibrations {

/// The whole text of a file, without a byte order mark. Throws `polarline::InputError` for what is missing, a folder,
/// empty, no text, or too long for any calibration.
std::string textOfFile(const std::string& path);

}  // namespace calibrations
