#include "store/fleet/Recurring.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <tuple>
#include <utility>

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostRows = 15000;

/// Of a cause in a cell.
struct Sums {
  std::size_t sets = 0;
  double mean = 0.0, squares = 0.0;  ///< Of the values, by the running recurrence (Welford 1962).
  double errors = 0.0;               ///< Squared.

  void add(double value, double error) {
    ++sets;
    const double off = value - mean;
    mean += off / static_cast<double>(sets);
    squares += off * (value - mean);
    errors += error * error;
  }
  double sd() const { return sets < 2 ? 0.0 : std::sqrt(squares / static_cast<double>(sets - 1)); }
};

struct ReadCauses {
  std::map<std::string, std::pair<std::string, std::size_t>> names;  ///< Unit and sets.
  std::map<std::pair<std::size_t, std::string>, Sums> of_cell;
};

ReadCauses readCauses(const sqlite::Database& database, const FleetSets& sets) {
  ReadCauses causes;
  // Of causes that a set's pictures do not tell apart, one whose size they leave open may be no cause at all.
  sqlite::Statement row(database,
                        "SELECT set_id, name, value, sd, unit FROM causes "
                        "WHERE alike IS NULL OR sd IS NULL OR abs(value) >= 3 * sd");
  while (row.step()) {
    const FleetSet& set = sets.at(sets.placeOf(row.integer(0)));
    if (set.cell < 0) continue;
    const std::string name = row.text(1);
    auto& [unit, count] = causes.names.try_emplace(name, row.text(4), 0).first->second;
    ++count;
    causes.of_cell[{static_cast<std::size_t>(set.cell), name}].add(row.real(2), row.real(3));
  }
  return causes;
}

/// Leaves out what says least where there is no room for all.
void shorten(Recurring& causes, const FleetSets& sets, const Cells& cells) {
  if (causes.cells.size() <= kMostRows) return;
  std::vector<std::size_t> diagnosed(cells.cells.size());
  for (const FleetSet& set : sets.all()) {
    if (set.cell >= 0 && set.is_diagnosed) ++diagnosed[static_cast<std::size_t>(set.cell)];
  }
  causes.are_rare_left_out = true;
  std::erase_if(causes.cells, [&](const CauseCell& row) { return 4 * row.sets < diagnosed[row.cell]; });
  if (causes.cells.size() <= kMostRows) return;
  causes.left_out = causes.cells.size() - kMostRows;
  std::ranges::stable_sort(causes.cells, std::greater<>(), &CauseCell::sets);
  causes.cells.resize(kMostRows);
  std::ranges::sort(causes.cells, {}, [](const CauseCell& row) { return std::tuple(row.cell, row.cause); });
}

}  // namespace

Recurring readRecurring(const sqlite::Database& database, const FleetSets& sets, const Cells& cells) {
  const ReadCauses read = readCauses(database, sets);
  Recurring causes;
  for (const auto& [name, known] : read.names) causes.names.push_back(name);
  std::ranges::stable_sort(causes.names, std::greater<>(),
                           [&](const std::string& name) { return read.names.at(name).second; });
  std::map<std::string, std::size_t> number;
  for (const std::string& name : causes.names) {
    number.emplace(name, causes.units.size());
    causes.units.push_back(read.names.at(name).first);
  }
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> totals;
  for (const auto& [key, sums] : read.of_cell) {
    const std::size_t cause = number.at(key.second);
    const double error = std::sqrt(sums.errors / static_cast<double>(sums.sets));
    causes.cells.push_back({key.first, cause, sums.sets, sums.mean, sums.sd(), error});
    totals[{static_cast<std::size_t>(cells.cells[key.first].group), cause}] += sums.sets;
  }
  std::ranges::sort(causes.cells, {}, [](const CauseCell& row) { return std::tuple(row.cell, row.cause); });
  for (const auto& [key, count] : totals) causes.totals.push_back({key.first, key.second, count});
  shorten(causes, sets, cells);
  return causes;
}

}  // namespace polarline::fleet
