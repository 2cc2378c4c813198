#pragma once

#include <cstddef>
#include <ostream>

#include "polar/evaluate/PairEvaluator.h"

/// The library's version as it stands in every row and as the version export hands it out.
inline constexpr const char* kVersion = "1.3.3";

/// Writes the row of one pair, `index` its position in the set from 0. In a frame run the evaluator's `frameValues` are
/// written alone and cleared after, so that they do not carry over to the next pair.
void WriteResultRow(PairEvaluator& evaluator, std::ostream& stream, std::size_t index);
