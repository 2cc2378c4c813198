#pragma once

#include <string>

#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Writes the board's geometry as the only record of "patterns". Meant: the detection settings of a big dot board are
/// not saved. Throws `std::system_error` of file type not supported or file not accessible.
void writeStorageConfig(const std::string& path, const RingTargetConfig& config);

}  // namespace kestrune
