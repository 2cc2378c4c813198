#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "store/fleet/Cells.h"
#include "store/fleet/FleetSets.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// A cause in a cell.
struct CauseCell {
  std::size_t cell = 0, cause = 0, sets = 0;
  double mean = 0.0, sd = 0.0;
  double error = 0.0;  ///< Of one set's value: root of the mean of the squared standard errors.
};

/// A cause in a group, over all time.
struct CauseTotal {
  std::size_t group = 0, cause = 0, sets = 0;
};

/// The causes that sets told, by group and by cell.
struct Recurring {
  std::vector<std::string> names, units;  ///< Most sets first.
  std::vector<CauseTotal> totals;
  std::vector<CauseCell> cells;    ///< By cell, then cause.
  std::size_t left_out = 0;        ///< Rows of few sets that there was no room for.
  bool are_rare_left_out = false;  ///< Rows of fewer than a quarter of a cell's diagnosed sets are not there.
};

Recurring readRecurring(const sqlite::Database& database, const FleetSets& sets, const Cells& cells);

}  // namespace polarline::fleet
