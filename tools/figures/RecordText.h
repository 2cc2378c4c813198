#pragma once

#include <iosfwd>
#include <vector>

#include "PolarLinePrecision/ResultRecords.h"

namespace figures {

/// Writes every field of every record, a name and its values a line, with as many digits as tell a double from its
/// neighbours; of the picture its size, type and the sum of its values.
void writeRecords(std::ostream& out, const std::vector<PolarResultRecord>& records);

}  // namespace figures
