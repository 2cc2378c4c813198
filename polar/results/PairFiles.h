#pragma once

#include <cstdint>
#include <string>

/// The table that the distance evaluation begins and the board check goes on with.
inline constexpr const char* kBoardCheckTable = "_boardcheck.csv";

/// Path of a table or picture of one pair, `suffix` behind the pair's number; empty, so that nothing is ever written,
/// without a result folder.
std::string pairFile(const std::string& result_folder, std::int32_t image_id, const std::string& suffix);
