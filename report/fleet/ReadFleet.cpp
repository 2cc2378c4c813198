#include "report/fleet/ReadFleet.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/fleet/Columns.h"
#include "report/read/ParseJson.h"

namespace polarline {
namespace {

FleetKey readKey(const Place& place) {
  FleetKey key{place.text("key"), {}};
  const auto values = place.json().find("values");
  if (values == place.json().end() || !values->is_array() || values->empty())
    place.refuse("values", "found no values, wanted a list of texts and null");
  for (const Json& value : *values) {
    if (!value.is_string() && !value.is_null())
      place.refuse("values", "found no text, wanted a list of texts and null");
    key.values.push_back(value.is_null() ? std::nullopt : std::optional(value.get<std::string>()));
  }
  return key;
}

std::vector<std::vector<std::size_t>> readGroups(const Place& fleet, const std::vector<FleetKey>& keys) {
  const auto groups = fleet.json().find("groups");
  if (groups == fleet.json().end() || !groups->is_array()) fleet.refuse("groups", "found no list, wanted one");
  std::vector<std::vector<std::size_t>> all;
  for (const Json& group : *groups) {
    if (!group.is_array() || group.size() != keys.size())
      fleet.refuse("groups", fmt::format("found a group that has not {} entries", keys.size()));
    std::vector<std::size_t> values;
    for (const Json& each : group) {
      const bool is_there = each.is_number_unsigned() && each.get<std::size_t>() < keys[values.size()].values.size();
      if (!is_there) fleet.refuse("groups", fmt::format("found {}, which is no index of a value", each.dump()));
      values.push_back(each.get<std::size_t>());
    }
    all.push_back(std::move(values));
  }
  return all;
}

FleetCells readCells(const Place& place, std::size_t groups) {
  const Columns columns(place, lengthOf(place, "group"));
  static_cast<void>(columns.counts("diagnosed"));
  static_cast<void>(columns.counts("pairs"));
  static_cast<void>(columns.counts("finished"));
  return {columns.indices("group", groups), columns.counts("day"),      columns.counts("passed"),
          columns.counts("failed"),         columns.counts("unjudged"), columns.counts("errors")};
}

void demandBins(const Place& place, std::size_t groups) {
  place.numbers({"from", "step"});
  const auto bins = place.json().find("bins");
  if (bins == place.json().end() || !bins->is_array() || bins->size() != groups)
    place.refuse("bins", fmt::format("wanted {} lists of counts", groups));
  const std::size_t bars = groups == 0 ? 0 : bins->front().size();
  for (const Json& counts : *bins) {
    const auto is_number = [](const Json& each) { return each.is_number_unsigned(); };
    if (!counts.is_array() || counts.size() != bars || !std::ranges::all_of(counts, is_number))
      place.refuse("bins", "found a list that is not of counts, or not as long as the others");
  }
}

FleetMeasure readMeasure(const Place& place, std::size_t groups, std::size_t cells) {
  place.oneOf("value", {"mean", "max", "min", "abs", "sd"}).textList("texts").truths({"changed"});
  demandBins(place, groups);
  const Columns by_group(place, groups);
  const Columns by_cell(place, cells);
  return {place.text("name"),        place.text("value"),  place.text("unit"),      by_group.numbers("lower"),
          by_group.numbers("upper"), by_cell.numbers("n"), by_cell.numbers("mean"), by_cell.numbers("sd")};
}

/// A list that tells only of cells that have something: cell, which of the names, and how many sets.
void demandSparse(const Place& place, const char* which, std::size_t names, std::size_t cells) {
  const Columns columns(place, lengthOf(place, "cell"));
  static_cast<void>(columns.indices("cell", cells));
  static_cast<void>(columns.indices(which, names));
  static_cast<void>(columns.counts("sets"));
}

std::size_t namesOf(const Place& place, const char* key) { return place.textList(key).json().at(key).size(); }

void demandCauses(const Place& place, std::size_t groups, std::size_t cells) {
  const std::size_t names = namesOf(place, "names");
  if (namesOf(place, "units") != names) place.refuse("units", "found another number of units than of names");
  demandSparse(place, "cause", names, cells);
  const Columns columns(place, lengthOf(place, "cell"));
  for (const char* key : {"mean", "sd", "error"}) static_cast<void>(columns.numbers(key));
  const Place totals = place.object("totals");
  const Columns of_groups(totals, lengthOf(totals, "group"));
  static_cast<void>(of_groups.indices("group", groups));
  static_cast<void>(of_groups.indices("cause", names));
  static_cast<void>(of_groups.counts("sets"));
}

void demandCourse(const Place& place, std::size_t groups, std::size_t measures) {
  if (place.count("group") >= groups) place.refuse("group", "found an index of no group");
  place.counts({"each", "waiting"});
  const std::size_t points = lengthOf(place, "minute");
  const auto values = place.json().find("values");
  const auto is_course = [points](const Json& each) { return each.is_array() && each.size() == points; };
  if (values == place.json().end() || !values->is_array() || values->size() != measures ||
      !std::ranges::all_of(*values, is_course))
    place.refuse("values", fmt::format("wanted {} lists of {} numbers", measures, points));
}

FleetWorst readWorst(const Place& place, std::size_t groups) {
  place.texts({"id", "document"}).oneOf("verdict", {"pass", "fail"}).numbers({"times"}).numbers({"measured"});
  if (place.count("group") >= groups) place.refuse("group", "found an index of no group");
  return {place.text("set"),  place.text("limit"),  place.text("verdict"),
          place.text("time"), place.count("group"), numberOf(place.json().at("measured"))};
}

void demandHead(const Place& fleet) {
  fleet.oneOf("schema", {"polarline-fleet/1"}).texts({"title", "made"}).counts({"sets", "serials"});
  fleet.object("tool").texts({"name", "version", "library"});
  fleet.oneOf("period", {"day", "week", "month", "year"}).textList("limits").textList("notes");
  for (const Place& other : fleet.objects("other_keys")) other.texts({"key"}).counts({"values"});
}

void readParts(const Place& place, Fleet& fleet) {
  const std::size_t groups = fleet.groups.size();
  const std::size_t cells = fleet.cells.group.size();
  for (const Place& each : place.objects("measures")) fleet.measures.push_back(readMeasure(each, groups, cells));
  for (const Place& each : place.objects("courses")) demandCourse(each, groups, fleet.measures.size());
  for (const Place& each : place.objects("worst")) fleet.worst.push_back(readWorst(each, groups));
  demandSparse(place.object("broken"), "limit", namesOf(place, "limits"), cells);
  const Place warnings = place.object("warnings");
  demandSparse(warnings, "code", namesOf(warnings, "codes"), cells);
  const Place endings = place.object("endings");
  demandSparse(endings, "name", namesOf(endings, "names"), cells);
  demandCauses(place.object("causes"), groups, cells);
}

}  // namespace

Fleet readFleet(const ReportDocument& document) {
  const std::string file = document.path.empty() ? "document" : document.path;
  const Json json = parseJson(document.text, file);
  const Place place(json, file);
  demandHead(place);
  Fleet fleet;
  fleet.title = place.text("title");
  fleet.made = place.text("made");
  fleet.period = place.text("period");
  fleet.sets = place.count("sets");
  for (const Place& key : place.objects("keys")) fleet.keys.push_back(readKey(key));
  if (fleet.keys.size() < 2) place.refuse("keys", "found fewer than two, wanted station and model first");
  fleet.groups = readGroups(place, fleet.keys);
  fleet.cells = readCells(place.object("cells"), fleet.groups.size());
  if (!fleet.cells.group.empty()) fleet.first_day = place.text("first_day");
  for (const Json& note : json.at("notes")) fleet.notes.push_back(note.get<std::string>());
  readParts(place, fleet);
  return fleet;
}

bool isFleetDocument(const ReportDocument& document) {
  const std::string_view text = document.text;
  const std::size_t key = text.find("\"schema\"");
  if (key == std::string_view::npos) return false;
  const std::size_t value = text.find('"', text.find(':', key));
  return value != std::string_view::npos && text.substr(value + 1).starts_with("polarline-fleet/");
}

}  // namespace polarline
