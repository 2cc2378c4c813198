#pragma once

#include <optional>
#include <string>

#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Reads the first record of a document's "patterns". Throws `std::system_error` of file not accessible, bad content or
/// bad configuration.
RingTargetConfig readStorageConfig(const std::string& path);

/// The text of a configuration that is no storage file: the content of a file whose name ends in "ini", otherwise the
/// argument itself.
std::string configText(const std::string& config);

/// Reads `key: value` lines. No value for a board type other than 1, 2 and 3, also when the key is absent.
std::optional<RingTargetConfig> readTextConfig(const std::string& text);

}  // namespace kestrune
