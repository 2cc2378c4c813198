#pragma once

#include <vector>

#include "check/init/FirstPair.h"
#include "polarline/board.h"
#include "polarline/calibration.h"
#include "polarline/warning.h"

namespace init {

/// Compares the steps that a board is described with to how far apart its dots stand where the calibrated cameras see
/// them. A turned camera moves triangulated dots, too, so that one share in both directions counts only where the poses
/// of the board tell it as well. Says nothing where too few dots are seen, and of polynomial lenses.
std::vector<polarline::Warning> judgeStep(const polarline::Calibration& calibration,
                                          const polarline::BoardDescription& board, const SeenBoard& left,
                                          const SeenBoard& right);

}  // namespace init
