#pragma once

#include "tools/scene/Board.h"

/// The boards of the presets.
namespace scene {

/// 35 x 37 rings of the kind, step 17.5 mm.
Board largeRingBoard(BoardKind kind);

/// 15 x 17 small rings.
Board smallRingBoard();

/// 71 x 73 small rings, the dots bigger than usual: on the widest images only dots of a 280th of the width and more
/// count.
Board defaultRingBoard();

/// Big dots on an inner rectangle of 5 x 5, step 20 mm both ways.
Board bigDotBoard(int rows, int cols);

}  // namespace scene
