#pragma once

#include <optional>

#include "check/init/FirstPair.h"
#include "check/picture/DotSize.h"
#include "polarline/board.h"
#include "polarline/warning.h"

namespace init {

/// Radii of dots that are found on the board in pictures of a width; none where no board of this kind is found.
std::optional<DotRange> dotLimits(const polarline::BoardDescription& board, int width);

/// What is to say of the first pair: a width at which no such board is found, dots that are missing, too small or too
/// large.
std::vector<polarline::Warning> judgeDots(const polarline::BoardDescription& board, int width, const SeenBoard& left,
                                          const SeenBoard& right);

}  // namespace init
