#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "report/fleet/ReadFleet.h"

namespace polarline {

/// Sets by how they ended. What was not judged, for want of limits or figures, does not count into the yield.
struct FleetCounts {
  std::size_t passed = 0;
  std::size_t failed = 0;
  std::size_t unjudged = 0;
  std::size_t errors = 0;

  std::size_t sets() const { return passed + failed + unjudged + errors; }
  std::size_t judged() const { return passed + failed; }
};

/// Sums over the cells with these numbers.
FleetCounts countsOf(const FleetCells& cells, const std::vector<std::size_t>& rows);

/// A share with its 95 % interval (Wilson, 1927).
struct FleetShare {
  double share = 0.0;
  double low = 0.0;
  double high = 0.0;
};

/// Passed sets of those that were judged; none where none was.
std::optional<FleetShare> yieldOf(const FleetCounts& counts);

/// Cells of the last period and of those before it that it is compared with: 28 days, 12 weeks, 12 months or 5 years.
struct FleetLately {
  std::vector<std::size_t> last;
  std::vector<std::size_t> before;
  std::size_t day = 0;  ///< The last period's.
};
FleetLately latelyOf(const Fleet& fleet);

/// The date, YYYY-MM-DD, of a day of the fleet; empty where its first day is no date.
std::string dateOf(const Fleet& fleet, std::size_t day);

}  // namespace polarline
