#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "store/fleet/Bins.h"
#include "store/fleet/Parts.h"

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostTexts = 8;
constexpr std::size_t kMostBinNumbers = 60000;
constexpr std::size_t kLeastBins = 10, kMostBins = 40;

/// The numbers of a cell, by the running recurrence (Welford 1962).
struct CellSpread {
  std::int64_t n = 0;
  double mean = 0.0, squares = 0.0, sd = 0.0;

  void add(double value) {
    ++n;
    const double off = value - mean;
    mean += off / static_cast<double>(n);
    squares += off * (value - mean);
  }
  void close() {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    sd = n == 0 ? kNone : n < 2 ? 0.0 : std::sqrt(squares / static_cast<double>(n - 1));
    if (n == 0) mean = kNone;
  }
};

void addSpreads(FleetJson& json, const Fleet& fleet, const std::vector<double>& values) {
  std::vector<CellSpread> cells(fleet.cells.cells.size());
  for (std::size_t place = 0; place < values.size(); ++place) {
    const int cell = fleet.sets.at(place).cell;
    if (cell >= 0 && !std::isnan(values[place])) cells[static_cast<std::size_t>(cell)].add(values[place]);
  }
  for (CellSpread& cell : cells) cell.close();
  addColumns(json, cells, "n", &CellSpread::n, "mean", &CellSpread::mean, "sd", &CellSpread::sd);
}

void addBins(FleetJson& json, const Fleet& fleet, const std::vector<double>& values, const GroupBounds& bounds) {
  std::vector<double> known, lines;
  for (std::size_t place = 0; place < values.size(); ++place) {
    if (fleet.sets.at(place).group >= 0 && !std::isnan(values[place])) known.push_back(values[place]);
  }
  for (const Bounds& each : bounds.of_group) {
    if (each.lower) lines.push_back(*each.lower);
    if (each.upper) lines.push_back(*each.upper);
  }
  const std::size_t numbers = std::max<std::size_t>(fleet.cells.groups.size() * fleet.measures.size(), 1);
  const Bins bins = chooseBins(known, lines, std::clamp(kMostBinNumbers / numbers, kLeastBins, kMostBins));
  json["from"] = shortNumber(bins.from);
  json["step"] = shortNumber(bins.step);
  std::vector<std::vector<std::int64_t>> counts(fleet.cells.groups.size(), std::vector<std::int64_t>(bins.count));
  for (std::size_t place = 0; place < values.size(); ++place) {
    const int group = fleet.sets.at(place).group;
    if (group >= 0 && !std::isnan(values[place])) ++counts[static_cast<std::size_t>(group)][bins.binOf(values[place])];
  }
  json["bins"] = counts;
}

FleetJson measureJson(const Fleet& fleet, std::size_t number) {
  const Measure& measure = fleet.measures[number];
  const GroupBounds bounds = boundsOf(measure, fleet.limits, fleet.sets, fleet.cells.groups.size());
  FleetJson json;
  json["name"] = measure.name;
  json["value"] = nameOf(measure.value);
  json["unit"] = unitOf(measure.name);
  json["lower"] = json["upper"] = FleetJson::array();
  for (const Bounds& each : bounds.of_group) {
    json["lower"].push_back(shortNumber(each.lower));
    json["upper"].push_back(shortNumber(each.upper));
  }
  json["texts"] = FleetJson::array();
  for (std::size_t k = 0; k < std::min(measure.rules.size(), kMostTexts); ++k)
    json["texts"].push_back(fleet.limits.rules[measure.rules[k]].text);
  json["changed"] = bounds.changed;
  addSpreads(json, fleet, fleet.values[number]);
  addBins(json, fleet, fleet.values[number], bounds);
  return json;
}

}  // namespace

void addMeasures(FleetJson& json, const Fleet& fleet, Notes& notes) {
  json["measures"] = FleetJson::array();
  for (std::size_t k = 0; k < fleet.measures.size(); ++k) json["measures"].push_back(measureJson(fleet, k));
  if (fleet.measures_left_out > 0) {
    notes.push_back(fmt::format("{} that limits judge {} not followed: those of the most sets are.",
                                countOf(fleet.measures_left_out, "more figure"),
                                fleet.measures_left_out == 1 ? "is" : "are"));
  }
}

}  // namespace polarline::fleet
