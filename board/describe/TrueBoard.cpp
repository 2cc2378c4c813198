#include <fmt/format.h>

#include <string>
#include <vector>

#include "board/marks/DetectorConfig.h"
#include "polarline/board.h"

namespace polarline {

std::vector<BoardPoint> boardPoints(const BoardDescription& board) {
  std::vector<BoardPoint> points;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.cols; ++column) {
      points.push_back({column * board.step, row * boards::rowStep(board), 0.0});
    }
  }
  return points;
}

std::string boardGroundTruthText(const BoardDescription& board) {
  std::string text;
  for (const BoardPoint& point : boardPoints(board)) text += fmt::format("{} {} {}\n", point.x, point.y, point.z);
  return text;
}

}  // namespace polarline
