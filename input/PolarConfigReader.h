#pragma once

#include <cstdint>
#include <string>

#include "input/PolarConfig.h"

/// Reads the polar configuration.
///
/// `config` is the path of a file of `key: value` lines or, when no such file opens, the lines themselves. Keys that
/// are missing leave their fields as they are. `result_folder` is taken over once the text has been read; where there
/// is no text to read it stays as it was. Returns 0, also for a configuration without content, or
/// `polar_status::kBadGroundTruthPoint`: a present reference point is not three numbers, and the keys behind it are not
/// read.
std::int32_t ReadPolarConfig(const std::string& config, const std::string& result_folder, PolarConfig& out);
