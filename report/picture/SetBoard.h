#pragma once

#include <string>

#include "report/measure/Board.h"
#include "report/read/Json.h"

namespace polarline {

/// The board of a checked set, with the places that were measured for it where the set has such a file and it is still
/// there.
Board boardOf(const Json& document, const std::string& path);

}  // namespace polarline
