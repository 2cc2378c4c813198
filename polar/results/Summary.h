#pragma once

#include <cstddef>
#include <ostream>

#include "input/PolarConfig.h"
#include "polar/results/PairFigures.h"

/// The library's version as it stands in every row and as the version export hands it out.
inline constexpr const char* kVersion = "1.3.3";

/// Header of an image set's summary with its line end.
void writeSummaryHeader(std::ostream& stream, const PolarConfig& config);

/// Header of the summary of pairs that were rectified elsewhere; it has no column for the board check.
void writeRectifiedHeader(std::ostream& stream, const PolarConfig& config);

/// Header of a frame summary with its line end.
void writeFrameHeader(std::ostream& stream, const PolarConfig& config);

/// Writes the row of one pair, `index` its position in the set from 0. In a frame run `frameValues` are written alone
/// and cleared after, so that they do not carry over to the next pair.
void WriteResultRow(const PolarConfig& config, PairFigures& figures, std::ostream& stream, std::size_t index);
