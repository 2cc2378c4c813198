#pragma once

#include <string>

#include "tools/scene/StereoRig.h"

namespace scene {

/// The JSON form of a calibration: cameras IR_L, IR_R and RGB (which repeats the left one), the rig's turn and shift in
/// IR_R. It has no place for polynomial tables, so it serves the Brown and the fisheye model only.
std::string calibrationJson(const StereoRig& rig);

}  // namespace scene
