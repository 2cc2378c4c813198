#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "store/results/LimitRules.h"
#include "store/results/Schema.h"
#include "store/results/Sqlite.h"
#include "support/TempFolder.h"

/// Results whose rows a test puts down one by one, without documents.
class FleetRows {
 public:
  FleetRows() { database_->run("INSERT INTO stores VALUES (1, '/store'); BEGIN"); }

  const sqlite::Database& database() const { return *database_; }

  /// @return Its number in the results; the first is 1.
  std::int64_t set(const std::string& time, const std::string& verdict = "pass", int judged = 1, bool diagnosed = false,
                   bool has_time = true) {
    const std::int64_t id = ++sets_;
    document_.run(id, id);
    set_.run(id, id, id, time, has_time, verdict, judged, diagnosed);
    return id;
  }
  void metadata(std::int64_t set, const std::string& key, const std::string& value) {
    sqlite::Statement(*database_, "INSERT INTO metadata VALUES (?, ?, ?)").run(set, key, value);
  }
  void pair(std::int64_t set, std::int64_t number, const std::map<std::string, double>& figures,
            const std::string& state = "finished") {
    sqlite::Statement(*database_,
                      "INSERT INTO pairs(set_id, pair, \"left\", \"right\", state, found_left, found_right) "
                      "VALUES (?, ?, '', '', ?, 0, 0)")
        .run(set, number, state);
    for (const auto& [name, value] : figures) figure(set, number, name, value);
  }
  void limit(std::int64_t set, const std::string& text, double value, bool holds) {
    rules_.add(text);
    sqlite::Statement(*database_,
                      "INSERT INTO limits SELECT ?1, count(*), ?2, ?3, ?4, NULL FROM limits WHERE set_id = ?1")
        .run(set, text, value, holds);
  }
  void cause(std::int64_t set, const std::string& name, double value, double sd) { cause_.run(set, name, value, sd); }
  /// Lets a set's causes be ones that are not told apart.
  void makeAlike(std::int64_t set) {
    sqlite::Statement(*database_, "UPDATE causes SET alike = 1 WHERE set_id = ?").run(set);
  }

 private:
  void figure(std::int64_t set, std::int64_t pair, const std::string& name, double value) {
    sqlite::Statement(*database_, "INSERT OR IGNORE INTO figure_names(name, figure, refined) VALUES (?1, ?1, 0)")
        .run(name);
    sqlite::Statement(*database_, "INSERT INTO figures SELECT ?, ?, id, ?, NULL FROM figure_names WHERE name = ?")
        .run(set, pair, value, name);
  }

  TempFolder folder_;
  std::unique_ptr<sqlite::Database> database_ = polarline::results::openResultsToWrite(folder_.file("results.sqlite"));
  polarline::results::LimitRules rules_{*database_};
  sqlite::Statement document_{*database_, "INSERT INTO documents VALUES (?, 1, 'd' || ?, 0, 0, 0, '', 0, 0, 0)"};
  sqlite::Statement set_{
      *database_,
      "INSERT INTO sets(id, document, name, inputs_sha256, settings, set_name, folder, time, has_time, started, "
      "verdict, judged, status, status_text, retry, pairs, finished, diagnosed, board_rows, board_cols, camera_model, "
      "width, height, library) "
      "VALUES (?1, ?2, 'd' || ?3, '', '', '', '', ?4, ?5, ?4, ?6, ?7, '', '', 0, 2, 1, ?8, 0, 0, '', 0, 0, '')"};
  sqlite::Statement cause_{*database_, "INSERT INTO causes VALUES (?, ?, ?, ?, 'deg', 0.5, NULL)"};
  std::int64_t sets_ = 0;
};
