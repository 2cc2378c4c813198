#pragma once

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/board/RingTargetConfig.h"
#include "polarline/board.h"

namespace boards {

bool isRingBoard(const polarline::BoardDescription& board);

/// Pitch of the rows, board unit.
double rowStep(const polarline::BoardDescription& board);

/// The board as the detector is configured for it.
kestrune::RingTargetConfig detectorConfig(const polarline::BoardDescription& board);

/// Which sizes of rings the detector will find on it.
kestrune::MarkerSizes markerSizes(const polarline::BoardDescription& board);

/// What the detector's land marks count in one column and in one row.
struct LandMarkUnit {
  int x = 0;
  int y = 0;
};
LandMarkUnit landMarkUnit(const polarline::BoardDescription& board);

}  // namespace boards
