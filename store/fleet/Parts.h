#pragma once

#include <string>
#include <vector>

#include "polarline/store.h"
#include "store/fleet/Fleet.h"
#include "store/fleet/FleetNumbers.h"

namespace polarline::fleet {

/// The parts of the page's JSON, each in a file of its own. What had to be left out is added to the notes.
using Notes = std::vector<std::string>;

/// `keys`, `other_keys`, `groups`, `period`, `first_day`, `cells`.
void addDivision(FleetJson& json, const Fleet& fleet, Notes& notes);

/// `measures`.
void addMeasures(FleetJson& json, const Fleet& fleet, Notes& notes);

/// `limits`, `broken`, `causes`, `warnings`, `endings`.
void addTallies(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, Notes& notes);

/// `courses`.
void addCourses(FleetJson& json, const Fleet& fleet, Notes& notes);

/// `worst`.
/// @param pages URL of the folder of the sets' pages, as seen from the fleet's page; empty: they have none.
void addWorst(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, const std::string& pages);

/// "1 set", "2 sets".
std::string countOf(std::size_t count, const std::string& what);

}  // namespace polarline::fleet
