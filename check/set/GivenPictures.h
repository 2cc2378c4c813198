#pragma once

#include <vector>

#include "polarline/check.h"
#include "polarline/set.h"

namespace polarline {

/// The pairs of pictures in memory, as a list would have them: "left[0]" and "right[0]" are the first. Throws
/// `InputError` for other than one picture a pair and side, for an empty one and for pixels that no run takes.
std::vector<ListedPair> listedPairs(const Pictures& pictures);

}  // namespace polarline
