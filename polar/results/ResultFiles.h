#pragma once

#include <cstdint>
#include <string>

#include "input/PolarConfig.h"

// Where a run writes. An empty path is one that nothing is written to.

/// Path of the summary of that name in the result folder; empty unless `evaluation` asks for a summary.
std::string summaryPath(const PolarConfig& config, const std::string& name);

/// The first align_data_n.csv of the result folder that does not exist yet; empty unless a summary is asked for.
std::string freeSummaryPath(const PolarConfig& config);

/// The summary of pairs that were rectified elsewhere.
inline constexpr const char* kRectifiedSummary = "align_data.csv";
inline constexpr const char* kFrameSummary = "frame_result.csv";

/// The table that the distance evaluation begins and the board check goes on with.
inline constexpr const char* kBoardCheckTable = "_boardcheck.csv";

/// Path of a table or picture of one pair, `suffix` behind the pair's number; empty without a result folder.
std::string pairFile(const std::string& result_folder, std::int32_t image_id, const std::string& suffix);
