#pragma once

#include <optional>

#include "camera/CalibratedPair.h"
#include "camera/PoseFit.h"
#include "check/init/FirstPair.h"
#include "polarline/board.h"
#include "polarline/calibration.h"

namespace init {

/// The cameras of a set that is being made, lenses in double precision. Of polynomial tables the plain numbers.
CalibratedPair camerasOf(const polarline::Calibration& calibration);

/// Where the board stands before a camera that sees it; none with too few dots to say so.
std::optional<CameraPose> boardPose(const CalibratedCamera& camera, const polarline::BoardDescription& board,
                                    const SeenBoard& seen);

}  // namespace init
