#pragma once

#include <optional>

#include "check/init/FirstPair.h"
#include "polarline/board.h"
#include "polarline/warning.h"

namespace init {

/// Radii of dots that are found, pixels of the picture.
struct DotLimits {
  double least = 0.0;
  double most = 0.0;
};

/// What the detector finds in pictures of a width; nothing where it finds no board of this kind. Measured with rendered
/// boards: docs/boards.md.
std::optional<DotLimits> dotLimits(const polarline::BoardDescription& board, int width);

/// What is to say of the first pair: a board that is not found, dots that are missing, too small or too large.
std::vector<polarline::Warning> judgeDots(const polarline::BoardDescription& board, int width, const SeenBoard& left,
                                          const SeenBoard& right);

}  // namespace init
