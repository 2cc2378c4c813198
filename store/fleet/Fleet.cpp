#include "store/fleet/Fleet.h"

#include <utility>

namespace polarline::fleet {

Fleet readFleet(const sqlite::Database& database) {
  Fleet fleet{FleetSets(database), {}, {}, {}, 0, {}, {}, {}};
  fleet.metadata = readFleetMetadata(database, fleet.sets);
  fleet.limits = readLimitsSeen(database, fleet.sets);
  fleet.measures = chooseMeasures(database, fleet.limits, fleet.measures_left_out);
  fleet.cells = divide(fleet.sets, fleet.metadata, fleet.measures.size());

  // With the row differences, by which sets without limits are ordered, in the same reading.
  std::vector<Measure> wanted = fleet.measures;
  wanted.push_back({"dy_means", MeasureValue::kMean, {}});
  fleet.values = readMeasuredValues(database, fleet.sets, wanted);
  fleet.rows = std::move(fleet.values.back());
  fleet.values.pop_back();
  return fleet;
}

}  // namespace polarline::fleet
