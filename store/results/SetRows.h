#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>

#include "store/results/DocumentRows.h"
#include "store/results/LimitRules.h"
#include "store/results/ReadMetadata.h"
#include "store/results/Sqlite.h"

namespace polarline::results {

/// Writes the rows of sets, within transactions of the caller.
class SetRows {
 public:
  explicit SetRows(const sqlite::Database& database);

  /// Adds a set of which nothing is there yet.
  void add(std::int64_t document, const std::string& name, const DocumentRows& rows, const SetMetadata& metadata);
  /// Puts a set's rows in place of its earlier ones; the metadata stay.
  void replace(std::int64_t set, std::int64_t document, const DocumentRows& rows);
  /// Puts a set's metadata in place of its earlier ones.
  void setMetadata(std::int64_t set, const SetMetadata& metadata);

 private:
  void addPairs(std::int64_t set, const DocumentRows& rows);
  void addFigures(std::int64_t set, const DocumentRows& rows);
  void addJudgement(std::int64_t set, const DocumentRows& rows);
  std::int64_t idOf(const FigureRow& figure);

  const sqlite::Database& database_;
  sqlite::Statement add_set_, replace_set_, set_metadata_, add_metadata_, set_place_, drop_metadata_;
  sqlite::Statement drop_pairs_, drop_figures_, drop_limits_, drop_causes_, drop_warnings_;
  sqlite::Statement add_pair_, add_figure_, add_limit_, add_cause_, add_warning_, add_name_, find_name_;
  LimitRules rules_;
  std::map<std::tuple<std::string, int, bool>, std::int64_t> names_;  ///< `figure_names` as far as it was seen.
};

}  // namespace polarline::results
