#include "report/measure/PairMeasures.h"

#include <cstddef>

namespace polarline {
namespace {

constexpr std::size_t kWorstDots = 10;

std::vector<double> disparitiesOf(const DotLists& dots) {
  std::vector<double> disparities;
  if (dots.rectified_left_x.empty() || dots.rectified_right_x.empty()) return disparities;
  for (std::size_t k = 0; k < dots.id.size(); ++k)
    disparities.push_back(dots.rectified_left_x[k] - dots.rectified_right_x[k]);
  return disparities;
}

RowMeasures rowsOf(const DotLists& dots, const std::vector<double>& dy) {
  return {spreadOf(dy), courseOf(dots.rectified_left_x, dy), courseOf(dots.rectified_left_y, dy)};
}

std::vector<double> without(std::vector<double> dy, const std::vector<double>& pattern) {
  for (std::size_t k = 0; k < dy.size(); ++k) dy[k] -= pattern[k];
  return dy;
}

}  // namespace

PairMeasures measure(const DotLists& dots, const Board& board, const CausePattern& pattern) {
  PairMeasures measures;
  measures.disparity = disparitiesOf(dots);
  measures.dy_pattern = pattern.of(dots);
  measures.board = fitBoard(dots, board);
  measures.rows = rowsOf(dots, dots.dy);
  if (!measures.dy_pattern.empty() && !dots.dy.empty())
    measures.remains = rowsOf(dots, without(dots.dy, measures.dy_pattern));
  measures.residual = spreadOf(dots.residual);
  measures.depth_error = spreadOf(measures.board.depth_error);
  measures.disparity_spread = spreadOf(measures.disparity);
  measures.distances = distanceBins(dots, board);
  measures.worst_by_dy = measures.rows.dy.count > 0;
  measures.worst = farthestOf(measures.worst_by_dy ? dots.dy : dots.residual, kWorstDots);
  return measures;
}

}  // namespace polarline
