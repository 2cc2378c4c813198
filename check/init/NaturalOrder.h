#pragma once

#include <string_view>

namespace init {

/// Whether one name stands before another as people count: runs of digits by their value, everything else byte by byte.
/// Names that differ in leading zeros only stand in the order of their bytes.
bool naturallyBefore(std::string_view a, std::string_view b);

}  // namespace init
