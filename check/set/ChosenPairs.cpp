#include "check/set/ChosenPairs.h"

#include <fmt/format.h>

#include "polarline/errors.h"

namespace polarline {

std::vector<ListedPair> chosenPairs(std::vector<ListedPair> listed,
                                    const std::optional<std::pair<std::size_t, std::size_t>>& chosen) {
  if (!chosen) return listed;
  const auto [first, last] = *chosen;
  if (first > last)
    throw InputError(fmt::format("pairs {}-{}", first, last),
                     fmt::format("the first lies behind the last; {}-{} was wanted for these", last, first));
  if (last >= listed.size())
    throw InputError(fmt::format("pairs {}-{}", first, last),
                     fmt::format("the list has the pairs 0-{}", listed.size() - 1));
  return {listed.begin() + static_cast<std::ptrdiff_t>(first), listed.begin() + static_cast<std::ptrdiff_t>(last) + 1};
}

}  // namespace polarline
