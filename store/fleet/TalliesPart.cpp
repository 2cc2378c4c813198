#include <fmt/format.h>

#include "store/fleet/Parts.h"
#include "store/fleet/Recurring.h"
#include "store/fleet/Tally.h"

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostLimits = 50, kMostWords = 60;

void addRows(FleetJson& json, const Tally& tally, const std::vector<std::string>& words, const char* name) {
  const std::vector<Tally::Row> rows = tally.rows(words);
  addColumns(json, rows, "cell", &Tally::Row::cell, name, &Tally::Row::word, "sets", &Tally::Row::sets);
}

void noteLeftOut(Notes& notes, std::size_t count, const char* what) {
  if (count > 0)
    notes.push_back(fmt::format("{} of the fewest sets {} left out.", countOf(count, what), count == 1 ? "is" : "are"));
}

void addBroken(FleetJson& json, const Fleet& fleet, Notes& notes) {
  Tally broken(fleet.sets);
  for (const LimitSeen& limit : fleet.limits.all) {
    if (!limit.holds) broken.add(limit.place, fleet.limits.rules[limit.rule].text);
  }
  std::size_t left_out = 0;
  const std::vector<std::string> texts = broken.words(kMostLimits, left_out);
  noteLeftOut(notes, left_out, "broken limit");
  json["limits"] = texts;
  addRows(json["broken"], broken, texts, "limit");
}

void addCauses(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, Notes& notes) {
  const Recurring causes = readRecurring(database, fleet.sets, fleet.cells);
  FleetJson& part = json["causes"];
  part["names"] = causes.names;
  part["units"] = causes.units;
  addColumns(part["totals"], causes.totals, "group", &CauseTotal::group, "cause", &CauseTotal::cause, "sets",
             &CauseTotal::sets);
  addColumns(part, causes.cells, "cell", &CauseCell::cell, "cause", &CauseCell::cause, "sets", &CauseCell::sets, "mean",
             &CauseCell::mean, "sd", &CauseCell::sd, "error", &CauseCell::error);
  if (causes.are_rare_left_out)
    notes.emplace_back("Causes that fewer than a quarter of a cell's diagnosed sets told are left out of the cells.");
  noteLeftOut(notes, causes.left_out, "cause of a cell");
}

/// Words of a query with a set and a word a row, those of a set together.
void addWords(FleetJson& part, const sqlite::Database& database, const FleetSets& sets, const char* query,
              const char* names, const char* name, Notes& notes) {
  Tally tally(sets);
  sqlite::Statement row(database, query);
  while (row.step()) tally.add(sets.placeOf(row.integer(0)), row.text(1));
  std::size_t left_out = 0;
  const std::vector<std::string> words = tally.words(kMostWords, left_out);
  noteLeftOut(notes, left_out, name);
  part[names] = words;
  addRows(part, tally, words, name);
}

}  // namespace

void addTallies(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, Notes& notes) {
  addBroken(json, fleet, notes);
  addCauses(json, database, fleet, notes);
  addWords(json["warnings"], database, fleet.sets, "SELECT set_id, code FROM warnings ORDER BY set_id", "codes", "code",
           notes);
  addWords(json["endings"], database, fleet.sets, "SELECT id, status FROM sets WHERE verdict = 'error'", "names",
           "name", notes);
}

}  // namespace polarline::fleet
