#pragma once

#include <string>

#include "check/init/CornerPoints.h"
#include "check/init/PolarSettings.h"
#include "polarline/init.h"

namespace init {

/// Adds to a set what was decided without being said, a sentence each.
void addGuesses(polarline::MadeSet& set, const CornerPoints& corners, const SetFacts& facts, const PolarConfig& config);

/// A word as a shell takes it: as it is, or in quotes.
std::string shellWord(const std::string& word);

}  // namespace init
