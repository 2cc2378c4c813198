#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace polarline::results {

/// A figure of a pair, or an entry of a list.
struct FigureRow {
  std::int64_t pair = 0;
  std::string figure;  ///< "dy_means"
  int entry = -1;      ///< Of a list; -1: one number.
  bool is_refined = false;
  double value = 0.0;
  double sd = std::numeric_limits<double>::quiet_NaN();  ///< Its standard error; not a number where it has none.
};

struct PairRow {
  std::int64_t pair = 0;  ///< `index` of the document.
  std::string left, right, state;
  std::optional<std::int64_t> reason_code;  ///< Of a pair given up.
  std::string reason_text, reason_side, reason_step;
  std::int64_t found_left = 0, found_right = 0;
  double coverage = std::numeric_limits<double>::quiet_NaN();
};

struct LimitRow {
  std::string text;
  double value = std::numeric_limits<double>::quiet_NaN();
  bool holds = false;
  std::optional<std::int64_t> pair;
};

struct CauseRow {
  std::string name, unit;
  double value = 0.0, sd = 0.0, share = 0.0;
  std::optional<std::int64_t> group;
};

struct WarningRow {
  std::string code, text;
  std::optional<std::int64_t> pair;
};

/// What the results file keeps of a document of a check: all but its points, settings, files and words of advice.
struct DocumentRows {
  std::string library;
  std::string started;  ///< UTC, ISO 8601.
  double seconds = 0.0;
  std::string id, name, folder;  ///< Of the set.
  std::optional<std::int64_t> status_code;
  std::string status, status_text;
  bool retry = false;
  std::string verdict;
  std::int64_t judged = 0;
  std::int64_t pairs_run = 0, pairs_finished = 0;
  std::int64_t board_rows = 0, board_cols = 0;
  std::string camera_model;
  std::int64_t width = 0, height = 0;
  bool is_diagnosed = false;
  double rows_before = std::numeric_limits<double>::quiet_NaN(), rows_after = std::numeric_limits<double>::quiet_NaN();
  std::vector<PairRow> pairs;
  std::vector<FigureRow> figures;  ///< What a pair measured itself.
  std::vector<LimitRow> limits;
  std::vector<CauseRow> causes;
  std::vector<WarningRow> warnings;
};

}  // namespace polarline::results
