#pragma once

#include <cstddef>
#include <vector>

#include "store/fleet/FleetSets.h"
#include "store/fleet/Measures.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// The number of each set for each measure; not a number where no finished pair measured the figure.
using MeasuredValues = std::vector<std::vector<double>>;  ///< By measure, then by the place of the set.

/// Reads the figures of all sets once.
MeasuredValues readMeasuredValues(const sqlite::Database& database, const FleetSets& sets,
                                  const std::vector<Measure>& measures);

}  // namespace polarline::fleet
