#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "polarline/report.h"

namespace polarline {

/// What sets can be filtered by, with the values that occur; none where a set does not say.
struct FleetKey {
  std::string key;
  std::vector<std::optional<std::string>> values;
};

/// A row a group and period; counts of sets.
struct FleetCells {
  std::vector<std::size_t> group, day, passed, failed, unjudged, errors;
};

/// A number of each set: by cell how many sets have it, mean and standard deviation; by group the bounds. Not a number
/// where there is none.
struct FleetMeasure {
  std::string name, value, unit;
  std::vector<double> lower, upper, n, mean, sd;
};

struct FleetWorst {
  std::string set, limit, verdict, time;
  std::size_t group = 0;
  double measured = 0.0;
};

/// As much of a fleet's data as stands on its page without a script. The rest has been looked through.
struct Fleet {
  std::string title, made, period, first_day;
  std::size_t sets = 0;
  std::vector<FleetKey> keys;
  std::vector<std::vector<std::size_t>> groups;
  FleetCells cells;
  std::vector<FleetMeasure> measures;
  std::vector<FleetWorst> worst;
  std::vector<std::string> notes;
};

/// Reads the data of a fleet's page. Every list that the page reads has its length, and every index leads somewhere.
/// Throws `InputError`.
Fleet readFleet(const ReportDocument& document);

}  // namespace polarline
