#include "store/results/SetRows.h"

#include <fmt/format.h>

#include <optional>

#include "store/work/UtcTime.h"

namespace polarline::results {
namespace {

/// NULL for what the list of the batch did not say.
std::optional<std::string> ifAny(std::string text) {
  return text.empty() ? std::nullopt : std::optional(std::move(text));
}

/// As a limit or a summary calls it: "refined.tri_dis[0]".
std::string fullName(const FigureRow& figure) {
  const std::string entry = figure.entry >= 0 ? fmt::format("[{}]", figure.entry) : "";
  return fmt::format("{}{}{}", figure.is_refined ? "refined." : "", figure.figure, entry);
}

}  // namespace

SetRows::SetRows(const sqlite::Database& database)
    : database_(database),
      add_set_(
          database,
          "INSERT INTO sets(document, name, time, has_time, settings, inputs_sha256, set_name, folder, started, "
          "seconds, verdict, judged, status, status_code, status_text, retry, pairs, finished, diagnosed, "
          "rows_before, rows_after, board_rows, board_cols, camera_model, width, height, library) "
          "VALUES (?, ?, '', 0, '', '', '', '', '', 0, 'error', 0, '', 0, '', 0, 0, 0, 0, 0, 0, 0, 0, '', 0, 0, '')"),
      replace_set_(database,
                   "UPDATE sets SET document = ?, inputs_sha256 = ?, set_name = ?, folder = ?, started = ?, "
                   "seconds = ?, verdict = ?, judged = ?, status = ?, status_code = ?, status_text = ?, retry = ?, "
                   "pairs = ?, finished = ?, diagnosed = ?, rows_before = ?, rows_after = ?, board_rows = ?, "
                   "board_cols = ?, camera_model = ?, width = ?, height = ?, library = ?, "
                   "time = CASE WHEN has_time THEN time ELSE ?5 END WHERE id = ?24"),
      set_metadata_(database,
                    "UPDATE sets SET serial = ?, station = ?, model = ?, has_time = ?, time = ifnull(?, started), "
                    "settings = ? WHERE id = ?"),
      add_metadata_(database, "INSERT INTO metadata VALUES (?, ?, ?)"),
      set_place_(database, "INSERT OR REPLACE INTO places VALUES (?, ?)"),
      drop_metadata_(database, "DELETE FROM metadata WHERE set_id = ?"),
      drop_pairs_(database, "DELETE FROM pairs WHERE set_id = ?"),
      drop_figures_(database, "DELETE FROM figures WHERE set_id = ?"),
      drop_limits_(database, "DELETE FROM limits WHERE set_id = ?"),
      drop_causes_(database, "DELETE FROM causes WHERE set_id = ?"),
      drop_warnings_(database, "DELETE FROM warnings WHERE set_id = ?"),
      add_pair_(database, "INSERT INTO pairs VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      add_figure_(database, "INSERT OR REPLACE INTO figures VALUES (?, ?, ?, ?, ?)"),
      add_limit_(database, "INSERT INTO limits VALUES (?, ?, ?, ?, ?, ?)"),
      add_cause_(database, "INSERT INTO causes VALUES (?, ?, ?, ?, ?, ?, ?)"),
      add_warning_(database, "INSERT INTO warnings VALUES (?, ?, ?, ?, ?)"),
      add_name_(database, "INSERT OR IGNORE INTO figure_names(name, figure, entry, refined) VALUES (?, ?, ?, ?)"),
      find_name_(database, "SELECT id FROM figure_names WHERE name = ?"),
      rules_(database) {}

void SetRows::add(std::int64_t document, const std::string& name, const DocumentRows& rows,
                  const SetMetadata& metadata) {
  add_set_.run(document, name);
  const std::int64_t set = database_.lastRow();
  replace(set, document, rows);
  setMetadata(set, metadata);
}

void SetRows::replace(std::int64_t set, std::int64_t document, const DocumentRows& rows) {
  for (sqlite::Statement* drop : {&drop_pairs_, &drop_figures_, &drop_limits_, &drop_causes_, &drop_warnings_})
    drop->run(set);
  replace_set_.run(document, rows.id, rows.name, rows.folder, rows.started, rows.seconds, rows.verdict, rows.judged,
                   rows.status, rows.status_code, rows.status_text, rows.retry, rows.pairs_run, rows.pairs_finished,
                   rows.is_diagnosed, rows.rows_before, rows.rows_after, rows.board_rows, rows.board_cols,
                   rows.camera_model, rows.width, rows.height, rows.library, set);
  addPairs(set, rows);
  addFigures(set, rows);
  addJudgement(set, rows);
}

void SetRows::setMetadata(std::int64_t set, const SetMetadata& metadata) {
  drop_metadata_.run(set);
  for (const auto& [key, value] : metadata.values) add_metadata_.run(set, key, value);
  const auto time = utcTime(metadata.value("time"));
  set_metadata_.run(ifAny(metadata.value("serial")), ifAny(metadata.value("station")), ifAny(metadata.value("model")),
                    time.has_value(), time, metadata.settings, set);
  if (!metadata.place.empty()) set_place_.run(set, metadata.place);
}

void SetRows::addPairs(std::int64_t set, const DocumentRows& rows) {
  for (const PairRow& pair : rows.pairs) {
    const bool has_reason = pair.reason_code.has_value();
    const auto reason = [&](const std::string& text) { return has_reason ? std::optional(text) : std::nullopt; };
    const auto text = reason(pair.reason_text), side = reason(pair.reason_side), step = reason(pair.reason_step);
    add_pair_.run(set, pair.pair, pair.left, pair.right, pair.state, pair.reason_code, text, side, step,
                  pair.found_left, pair.found_right, pair.coverage);
  }
}

std::int64_t SetRows::idOf(const FigureRow& figure) {
  std::int64_t& id = names_[{figure.figure, figure.entry, figure.is_refined}];
  if (id != 0) return id;
  const std::string name = fullName(figure);
  const auto entry = figure.entry >= 0 ? std::optional(figure.entry) : std::nullopt;
  add_name_.run(name, figure.figure, entry, figure.is_refined);
  find_name_.bind(name).step();
  id = find_name_.integer(0);
  find_name_.reset();
  return id;
}

void SetRows::addFigures(std::int64_t set, const DocumentRows& rows) {
  for (const FigureRow& figure : rows.figures) add_figure_.run(set, figure.pair, idOf(figure), figure.value, figure.sd);
}

void SetRows::addJudgement(std::int64_t set, const DocumentRows& rows) {
  int position = 0;
  for (const LimitRow& limit : rows.limits) {
    rules_.add(limit.text);
    add_limit_.run(set, position++, limit.text, limit.value, limit.holds, limit.pair);
  }
  for (const CauseRow& cause : rows.causes)
    add_cause_.run(set, cause.name, cause.value, cause.sd, cause.unit, cause.share, cause.group);
  position = 0;
  for (const WarningRow& warning : rows.warnings)
    add_warning_.run(set, position++, warning.code, warning.pair, warning.text);
}

}  // namespace polarline::results
