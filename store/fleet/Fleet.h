#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "store/fleet/Cells.h"
#include "store/fleet/FleetSets.h"
#include "store/fleet/LimitsSeen.h"
#include "store/fleet/MeasuredValues.h"
#include "store/fleet/Measures.h"
#include "store/fleet/Metadata.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// What the results say of the fleet, before it becomes the page's JSON.
struct Fleet {
  FleetSets sets;
  FleetMetadata metadata;
  LimitsSeen limits;
  std::vector<Measure> measures;
  std::size_t measures_left_out = 0;
  Cells cells;
  MeasuredValues values;     ///< Of the measures.
  std::vector<double> rows;  ///< Mean `dy_means` of each set.
};

Fleet readFleet(const sqlite::Database& database);

}  // namespace polarline::fleet
