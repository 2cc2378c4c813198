#pragma once

#include <cstdint>
#include <string>

/// Path of a table or picture of one pair, `suffix` behind the pair's number; empty, so that nothing is ever written,
/// without a result folder.
std::string pairFile(const std::string& result_folder, std::int32_t image_id, const std::string& suffix);
