#pragma once

#include <vector>

#include "check/picture/SeenPicture.h"
#include "polarline/detect.h"

/// The steps that the detection of this board has, and how each went.
std::vector<polarline::DetectionStage> stagesOf(const SeenPicture& seen);
