#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "store/fleet/FleetSets.h"
#include "store/fleet/LimitsSeen.h"

namespace polarline::fleet {

/// How bad a set is, by the limit that it is farthest beyond, or comes nearest to.
struct WorstSet {
  std::size_t place = 0;
  std::optional<std::size_t> rule;  ///< None for a set without limits.
  std::optional<double> measured;
  std::optional<double> times;
};

/// The worst sets, the worst first: of each group as many as there is room for. Failed ones stand before others; those
/// without limits behind all, by their row differences. Sets that ended in an error are not among them.
/// @param rows Mean `dy_means` of each set.
/// @param groups How many there are.
std::vector<WorstSet> worstOf(const FleetSets& sets, const LimitsSeen& limits, const std::vector<double>& rows,
                              std::size_t groups);

}  // namespace polarline::fleet
