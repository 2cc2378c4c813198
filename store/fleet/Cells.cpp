#include "store/fleet/Cells.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostGroups = 2000;
constexpr std::size_t kMostCellNumbers = 40000;  ///< Of all cells and measures.

using DayAndGroup = std::pair<std::int64_t, int>;

std::vector<DayAndGroup> cellKeys(const FleetSets& sets, Period period) {
  std::vector<DayAndGroup> keys;
  keys.reserve(sets.size());
  for (const FleetSet& set : sets.all()) {
    if (set.group >= 0) keys.emplace_back(firstDayOf(period, dayOf(set.time)), set.group);
  }
  std::ranges::sort(keys);
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  return keys;
}

/// Every combination of values that occurs; sets each set's group.
std::vector<std::vector<int>> group(FleetSets& sets, const FleetMetadata& metadata) {
  std::map<std::vector<int>, int> found;
  std::vector<int> values(metadata.columns.size());
  const auto read = [&](std::size_t place) {
    for (std::size_t k = 0; k < values.size(); ++k) values[k] = metadata.columns[k].of_set[place];
  };
  for (std::size_t place = 0; place < sets.size(); ++place) {
    read(place);
    found.emplace(values, 0);
  }
  std::vector<std::vector<int>> groups;
  for (auto& [combination, number] : found) {
    number = static_cast<int>(groups.size());
    groups.push_back(combination);
  }
  for (std::size_t place = 0; place < sets.size(); ++place) {
    read(place);
    sets.at(place).group = found.at(values);
  }
  return groups;
}

/// Keeps the groups of the most sets: as many as there is room for.
void leaveOut(FleetSets& sets, Cells& cells, std::size_t most_cells) {
  const std::size_t count = cells.groups.size();
  std::vector<std::size_t> sets_of(count), cells_of(count), order(count);
  for (const FleetSet& set : sets.all()) ++sets_of[static_cast<std::size_t>(set.group)];
  for (const auto& [day, group] : cellKeys(sets, cells.period)) ++cells_of[static_cast<std::size_t>(group)];
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) { return sets_of[a] > sets_of[b]; });

  std::vector<int> numbers(count, -1);
  std::size_t kept_cells = 0, kept_groups = 0;
  for (const std::size_t each : order) {
    kept_cells += cells_of[each];
    if (kept_cells > most_cells || kept_groups == kMostGroups) break;
    ++kept_groups;
    numbers[each] = 0;
  }
  std::vector<std::vector<int>> groups;
  for (std::size_t k = 0; k < count; ++k) {
    if (numbers[k] < 0) {
      ++cells.left_out_groups;
      cells.left_out_sets += sets_of[k];
      continue;
    }
    numbers[k] = static_cast<int>(groups.size());
    groups.push_back(cells.groups[k]);
  }
  cells.groups = std::move(groups);
  for (FleetSet& set : sets.all()) set.group = numbers[static_cast<std::size_t>(set.group)];
}

/// Sets each set's cell.
void number(FleetSets& sets, Cells& cells) {
  const std::vector<DayAndGroup> keys = cellKeys(sets, cells.period);
  for (const auto& [day, group] : keys) cells.cells.push_back({group, day});
  for (FleetSet& set : sets.all()) {
    if (set.group < 0) continue;
    const DayAndGroup key(firstDayOf(cells.period, dayOf(set.time)), set.group);
    set.cell = static_cast<int>(std::ranges::lower_bound(keys, key) - keys.begin());
  }
}

}  // namespace

Cells divide(FleetSets& sets, FleetMetadata& metadata, std::size_t measures) {
  const std::size_t most_cells = kMostCellNumbers / std::max<std::size_t>(measures, 1);
  Cells cells;
  cells.groups = group(sets, metadata);
  const auto is_too_much = [&] {
    return cells.groups.size() > kMostGroups || cellKeys(sets, cells.period).size() > most_cells;
  };
  while (is_too_much()) {
    if (metadata.columns.size() > kFixedKeys) {
      metadata.others.push_back({metadata.columns.back().key, metadata.columns.back().values.size()});
      metadata.columns.pop_back();
      cells.groups = group(sets, metadata);
    } else if (cells.period != Period::kYear) {
      cells.period = static_cast<Period>(static_cast<int>(cells.period) + 1);
    } else {
      leaveOut(sets, cells, most_cells);
      break;
    }
  }
  if (sets.size() > 0) cells.first_day = firstDayOf(cells.period, dayOf(sets.at(0).time));
  number(sets, cells);
  return cells;
}

}  // namespace polarline::fleet
