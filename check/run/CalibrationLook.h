#pragma once

#include <string>

#include "input/StereoCalibParams.h"

namespace polarline {

/// Looks at the members of a JSON calibration that the loader takes as 0, or as the largest double, without a message.
/// Throws `InputError` for a member of a camera or of the pose that is absent or no number. Takes each layout that the
/// loader takes; what it does not open or know is left to it.
void requireMembers(const std::string& path, const std::string& plain_path);

/// Throws `InputError` for numbers of which no figure can come: a focal length that is not above 0, and cameras that
/// stand in one place.
void requireGeometry(const std::string& path, const StereoCalibParams& calib);

}  // namespace polarline
