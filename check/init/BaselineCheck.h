#pragma once

#include <vector>

#include "check/init/FirstPair.h"
#include "polarline/board.h"
#include "polarline/calibration.h"

namespace init {

/// Compares the way between the cameras that the calibration tells with the one that a pair's pictures of the board
/// show: another length means other units, another direction exchanged sides. Says nothing where too few dots are seen.
std::vector<polarline::Warning> judgeBaseline(const polarline::Calibration& calibration,
                                              const polarline::BoardDescription& board, const SeenBoard& left,
                                              const SeenBoard& right);

}  // namespace init
