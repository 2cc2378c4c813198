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

}  // namespace

PairMeasures measure(const DotLists& dots, const Board& board, const CausePattern& pattern) {
  PairMeasures measures;
  measures.disparity = disparitiesOf(dots);
  measures.dy_pattern = pattern.of(dots);
  measures.board = fitBoard(dots, board);
  measures.dy = spreadOf(dots.dy);
  measures.residual = spreadOf(dots.residual);
  measures.depth_error = spreadOf(measures.board.depth_error);
  measures.disparity_spread = spreadOf(measures.disparity);
  measures.along = courseOf(dots.rectified_left_x, dots.dy);
  measures.across = courseOf(dots.rectified_left_y, dots.dy);
  measures.distances = distanceBins(dots, board);
  measures.worst_by_dy = measures.dy.count > 0;
  measures.worst = farthestOf(measures.worst_by_dy ? dots.dy : dots.residual, kWorstDots);
  return measures;
}

}  // namespace polarline
