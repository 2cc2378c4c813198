#include "polar/evaluate/raw/DistanceTables.h"

#include "platform/OutputFile.h"
#include "polar/results/ResultFiles.h"

namespace {

files::OutputFile openTable(const PairEvaluator& evaluator, bool wanted, const char* suffix) {
  const bool saved = wanted && evaluator.config().discalsave;
  return files::OutputFile(saved ? pairFile(evaluator.result_folder, evaluator.image_id, suffix) : "");
}

}  // namespace

DistanceTables::DistanceTables(const PairEvaluator& evaluator, bool with_board_check)
    : distances_file_(openTable(evaluator, true, "_diserr.csv")),
      points_file_(openTable(evaluator, true, "_tripoints.csv")),
      board_check_file_(openTable(evaluator, with_board_check, kBoardCheckTable)),
      distances_(distances_file_),
      points_(points_file_),
      board_check_(board_check_file_) {}
