#pragma once

#include <fstream>

#include "polar/evaluate/PairEvaluator.h"
#include "polar/results/RowWriter.h"

/// The tables of the distance evaluation. A table that is not asked for is a failed stream, which takes what is written
/// and keeps nothing.
class DistanceTables {
 public:
  /// Opens the tables of the evaluator's current pair while `discalsave` is on.
  DistanceTables(const PairEvaluator& evaluator, bool with_board_check);

  RowWriter& distances() { return distances_; }
  RowWriter& points() { return points_; }
  RowWriter& boardCheck() { return board_check_; }

  /// The line above a column of figures, one a point.
  static void columnHeader(RowWriter& table, const char* figure) { table.row("id_", " ", figure); }

 private:
  std::ofstream distances_file_, points_file_, board_check_file_;
  RowWriter distances_, points_, board_check_;
};
