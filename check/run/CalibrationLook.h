#pragma once

#include <string>
#include <vector>

#include "input/StereoCalibParams.h"
#include "polarline/warning.h"

namespace polarline {

/// Looks at the members of a JSON calibration that the loader takes as 0, or as the largest double, without a message:
/// warns of one that is absent, and of two poses, which are read as none. Throws `InputError` for a member of a camera
/// or of the pose that is not a number, and for a focal length that is absent. Takes each layout that the loader takes;
/// what it does not open or know is left to it.
void lookAtMembers(const std::string& path, const std::string& plain_path, std::vector<Warning>& warnings);

/// Throws `InputError` for a focal length that is not above 0: no figure can come of it. Warns of cameras that stand in
/// one place, of which few figures can.
void lookAtGeometry(const std::string& path, const StereoCalibParams& calib, std::vector<Warning>& warnings);

}  // namespace polarline
