#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <ios>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "polarline/store.h"
#include "store/fleet/Parts.h"
#include "store/fleet/Worst.h"
#include "store/results/Schema.h"
#include "store/results/StoreWalk.h"

namespace polarline {
using namespace fleet;

namespace {

/// What is read afterwards is of one moment, whoever writes.
std::unique_ptr<sqlite::Database> openSnapshot(const std::string& results) {
  std::unique_ptr<sqlite::Database> database = results::openResultsToRead(results);
  database->run("BEGIN");
  return database;
}

std::string now() {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const auto day = std::chrono::floor<std::chrono::days>(seconds);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(seconds - day);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", int{date.year()}, unsigned{date.month()},
                     unsigned{date.day()}, time.hours().count(), time.minutes().count(), time.seconds().count());
}

void addHead(FleetJson& json, const sqlite::Database& database, const std::string& results, const FleetOptions& options,
             const Fleet& fleet) {
  json["schema"] = "polarline-fleet/1";
  json["made"] = options.made.empty() ? now() : options.made;
  json["tool"] = {{"name", "polarline"}, {"version", PLP_VERSION}, {"library", "PolarLinePrecision " PLP_VERSION}};
  json["title"] = options.title.empty() ? std::filesystem::path(results).stem().string() : options.title;
  json["sets"] = fleet.sets.size();
  json["serials"] = database.integer("SELECT count(DISTINCT serial) FROM sets");
  json["first"] = json["last"] = nullptr;
  if (fleet.sets.size() > 0) {
    json["first"] = database.text("SELECT min(time) FROM sets");
    json["last"] = database.text("SELECT max(time) FROM sets");
  }
}

void addNotes(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, const Notes& others) {
  Notes notes;
  if (const std::size_t count = fleet.sets.withoutTime(); count > 0)
    notes.push_back(fmt::format("{} had no time; the begin of {} check counts.", countOf(count, "set"),
                                count == 1 ? "its" : "their"));
  if (const std::int64_t count = database.integer("SELECT count(*) FROM quarantine"); count > 0)
    notes.push_back(fmt::format("{} could not be read.", countOf(static_cast<std::size_t>(count), "document")));
  notes.insert(notes.end(), others.begin(), others.end());
  json["notes"] = notes;
}

}  // namespace

bool isResultsFile(const std::string& path) {
  constexpr std::string_view kBegin = "SQLite format 3";
  std::ifstream stream(path, std::ios::binary);
  std::string begin(kBegin.size(), '\0');
  return stream.read(begin.data(), static_cast<std::streamsize>(begin.size())) && begin == kBegin;
}

std::string fleetData(const std::string& results, const FleetOptions& options) {
  const std::unique_ptr<sqlite::Database> database = openSnapshot(results);
  const Fleet fleet = readFleet(*database);
  FleetJson json;
  Notes notes;
  addHead(json, *database, results, options, fleet);
  addDivision(json, fleet, notes);
  addMeasures(json, fleet, notes);
  addTallies(json, *database, fleet, notes);
  addCourses(json, fleet, notes);
  addWorst(json, *database, fleet, options.pages);
  addNotes(json, *database, fleet, notes);
  // Paths and names may be of any bytes.
  return json.dump(-1, ' ', false, FleetJson::error_handler_t::replace);
}

std::vector<WorstDocument> worstDocuments(const std::string& results) {
  const std::unique_ptr<sqlite::Database> database = openSnapshot(results);
  const Fleet fleet = readFleet(*database);
  std::vector<WorstDocument> documents;
  sqlite::Statement row(*database,
                        "SELECT s.name, t.path FROM sets s JOIN documents d ON d.id = s.document "
                        "JOIN stores t ON t.id = d.store WHERE s.id = ?");
  for (const WorstSet& each : worstOf(fleet.sets, fleet.limits, fleet.rows, fleet.cells.groups.size())) {
    row.bind(fleet.sets.at(each.place).id).step();
    documents.push_back({row.text(0), results::documentPath(row.text(1), row.text(0)).string()});
  }
  return documents;
}

}  // namespace polarline
