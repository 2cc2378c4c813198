#pragma once

#include "tools/scene/Fields.h"
#include "tools/scene/StereoRig.h"

namespace scene {

/// The cameras of a scene file, as `rig` and `given` tell them. Every number ends as one of single precision.
void rigFields(Fields& fields, StereoRig& rig);

}  // namespace scene
