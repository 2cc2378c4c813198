#pragma once

#include <ostream>
#include <string>

#include "input/PolarConfig.h"

/// What the names of the numbered and of the rectification summary begin with.
inline constexpr const char* kSummaryStem = "align_data";
/// Name of the board check's figure in every table.
inline constexpr const char* kSpaceRms = "space_rms";

/// Path of a summary in the result folder: `name` below it, or, when nothing is to be written, empty.
std::string summaryPath(const PolarConfig& config, std::int32_t evaluation, const std::string& name);

/// The first align_data_n.csv of the result folder that does not exist yet; empty when nothing is to be written.
std::string freeSummaryPath(const PolarConfig& config, std::int32_t evaluation);

/// Header of an image-set or rectification summary with its line end; the latter has no column for the board check.
void writeSummaryHeader(std::ostream& stream, const PolarConfig& config, bool with_space_rms);

/// Header of a frame summary with its line end.
void writeFrameHeader(std::ostream& stream, const PolarConfig& config);
