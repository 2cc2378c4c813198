#pragma once

#include "check/init/CornerPoints.h"
#include "check/init/PolarSettings.h"
#include "polarline/init.h"

namespace init {

/// Adds to a set what was decided without being said, a sentence each.
void addGuesses(polarline::MadeSet& set, const CornerPoints& corners, const SetFacts& facts, const PolarConfig& config);

}  // namespace init
