#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "polarline/set.h"

namespace polarline {

/// The pairs from the first position to the last; all without. Throws `InputError` for positions that the list does not
/// have.
std::vector<ListedPair> chosenPairs(std::vector<ListedPair> listed,
                                    const std::optional<std::pair<std::size_t, std::size_t>>& chosen);

}  // namespace polarline
