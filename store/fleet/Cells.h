#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "store/fleet/FleetSets.h"
#include "store/fleet/Metadata.h"
#include "store/fleet/Period.h"

namespace polarline::fleet {

/// The sets of a group and period.
struct Cell {
  int group = 0;
  std::int64_t day = 0;  ///< First of the period, since 1970.
};

/// How the sets are divided: groups of the same metadata, cells of a group and a period.
struct Cells {
  Period period = Period::kDay;
  std::int64_t first_day = 0;            ///< First day of the period of the earliest set.
  std::vector<std::vector<int>> groups;  ///< Of each key an index of its values; sorted.
  std::vector<Cell> cells;               ///< By day, then group.
  std::size_t left_out_groups = 0, left_out_sets = 0;
};

/// Divides the sets as finely as the page has room for: while there are too many cells or groups, the last of the extra
/// keys goes (to the other keys), then the periods grow, then the groups of the fewest sets are left out. Sets each
/// set's group and cell.
/// @param measures How many numbers a cell has room for.
Cells divide(FleetSets& sets, FleetMetadata& metadata, std::size_t measures);

}  // namespace polarline::fleet
