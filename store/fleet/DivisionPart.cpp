#include <fmt/format.h>

#include <array>

#include "store/fleet/Parts.h"
#include "store/work/UtcTime.h"

namespace polarline::fleet {
namespace {

struct CellCounts {
  std::int64_t group = 0, day = 0;
  std::array<std::int64_t, 4> endings{};  ///< By `Ending`.
  std::int64_t diagnosed = 0, pairs = 0, finished = 0;
};

std::vector<CellCounts> count(const Fleet& fleet) {
  std::vector<CellCounts> counts(fleet.cells.cells.size());
  for (std::size_t k = 0; k < counts.size(); ++k) {
    counts[k].group = fleet.cells.cells[k].group;
    counts[k].day = fleet.cells.cells[k].day - fleet.cells.first_day;
  }
  for (const FleetSet& set : fleet.sets.all()) {
    if (set.cell < 0) continue;
    CellCounts& counted = counts[static_cast<std::size_t>(set.cell)];
    ++counted.endings.at(static_cast<std::size_t>(set.ending));
    counted.diagnosed += set.is_diagnosed ? 1 : 0;
    counted.pairs += set.pairs;
    counted.finished += set.finished;
  }
  return counts;
}

void addCells(FleetJson& json, const Fleet& fleet) {
  const std::vector<CellCounts> counts = count(fleet);
  FleetJson& cells = json["cells"] = FleetJson::object();
  addColumns(cells, counts, "group", &CellCounts::group, "day", &CellCounts::day);
  constexpr std::array kEndings{"passed", "failed", "unjudged", "errors"};
  for (std::size_t k = 0; k < kEndings.size(); ++k) {
    FleetJson& list = cells[kEndings.at(k)] = FleetJson::array();
    for (const CellCounts& cell : counts) list.push_back(cell.endings.at(k));
  }
  addColumns(cells, counts, "diagnosed", &CellCounts::diagnosed, "pairs", &CellCounts::pairs, "finished",
             &CellCounts::finished);
}

FleetJson keysJson(const FleetMetadata& metadata) {
  FleetJson keys = FleetJson::array();
  for (const MetadataColumn& column : metadata.columns) {
    FleetJson values = FleetJson::array();
    for (const auto& value : column.values) values.push_back(value ? FleetJson(*value) : FleetJson(nullptr));
    keys.push_back({{"key", column.key}, {"values", std::move(values)}});
  }
  return keys;
}

}  // namespace

std::string countOf(std::size_t count, const std::string& what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

void addDivision(FleetJson& json, const Fleet& fleet, Notes& notes) {
  json["keys"] = keysJson(fleet.metadata);
  json["other_keys"] = FleetJson::array();
  for (const OtherKey& other : fleet.metadata.others)
    json["other_keys"].push_back({{"key", other.key}, {"values", other.values}});
  json["groups"] = fleet.cells.groups;
  json["period"] = nameOf(fleet.cells.period);
  json["first_day"] = nullptr;
  if (fleet.sets.size() > 0) {
    const Date day = dateFromDays(fleet.cells.first_day);
    json["first_day"] = fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
  }
  addCells(json, fleet);
  if (fleet.cells.left_out_groups > 0) {
    notes.push_back(fmt::format("{} of the fewest sets, {} in all, are left out: the page has no room for them.",
                                countOf(fleet.cells.left_out_groups, "group"),
                                countOf(fleet.cells.left_out_sets, "set")));
  }
}

}  // namespace polarline::fleet
