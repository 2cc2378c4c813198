#pragma once

#include "platform/OutputFile.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/results/TableWriter.h"

/// Errors stand in the tables in thousandths of their unit.
inline constexpr float kTableScale = 1000.0F;

/// The tables of the distance evaluation. A table that is not asked for is a failed stream, which takes what is written
/// and keeps nothing.
class DistanceTables {
 public:
  /// Opens the tables of the evaluator's current pair while `discalsave` is on.
  DistanceTables(const PairEvaluator& evaluator, bool with_board_check);

  TableWriter& distances() { return distances_; }
  TableWriter& points() { return points_; }
  TableWriter& boardCheck() { return board_check_; }

  /// The line above a column of figures, one a point.
  static void columnHeader(TableWriter& table, const char* figure) { table.row("id_", " ", figure); }

 private:
  files::OutputFile distances_file_, points_file_, board_check_file_;
  TableWriter distances_, points_, board_check_;
};
