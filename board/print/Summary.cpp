#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <string>

#include "board/marks/DetectorConfig.h"
#include "board/sheet/SheetLayout.h"
#include "polarline/board.h"

namespace polarline {

std::string boardSummary(const BoardDescription& board, const PrintedBoard& printed) {
  return fmt::format(
      "{}, up to {} of {} ids to be detected, on {} ({} x {} mm). Print it at 100 %: the ruler must measure {} mm.",
      boardText(board), detectablePoints(board), board.rows * board.cols, printed.paper, printed.width, printed.height,
      boards::kRulerLength);
}

std::string boardJson(const BoardDescription& board, const PrintedBoard& printed) {
  nlohmann::ordered_json json;
  json["schema"] = "polarline-board/1";
  json["board"] = {{"text", boardText(board)},
                   {"type", boards::isRingBoard(board) ? 2 : 3},
                   {"rows", board.rows},
                   {"cols", board.cols},
                   {"step", board.step},
                   {"step_y", boards::rowStep(board)},
                   {"points", board.rows * board.cols},
                   {"detectable_points", detectablePoints(board)}};
  json["sheet"] = {{"paper", printed.paper},
                   {"width_mm", printed.width},
                   {"height_mm", printed.height},
                   {"ruler_mm", boards::kRulerLength}};
  return json.dump(2) + "\n";
}

}  // namespace polarline
