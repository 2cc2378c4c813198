#include "tools/scene/BoardMarks.h"

#include <cstdlib>

namespace scene {
namespace {

/// Markers of this radius and more, in steps, leave no room for the dots right beside them.
constexpr double kCoversNeighbours = 0.65;

std::vector<Marker> ringMarkers(const Board& board) {
  const int centre_column = (board.cols + 1) / 2 - 1;
  const int centre_row = (board.rows + 1) / 2 - 1;
  const bool big = board.kind == BoardKind::kBigRings;
  const int half_width = ((big ? board.outter_width : board.inner_width) - 1) / 2;
  const int half_height = ((big ? board.outter_height : board.inner_height) - 1) / 2;
  const MarkRadii ring = big ? board.big_ring : board.small_ring;
  std::vector<Marker> markers{{centre_column - half_width, centre_row - half_height, ring},
                              {centre_column + half_width, centre_row - half_height, ring},
                              {centre_column + half_width, centre_row + half_height, ring},
                              {centre_column - half_width, centre_row + half_height, ring}};
  if (board.kind == BoardKind::kMixedRings) {
    markers.push_back(
        {centre_column - (board.outter_width - 1) / 2, centre_row - (board.outter_height - 1) / 4, board.big_solid});
  } else {
    markers.push_back(
        {centre_column - half_width, centre_row - half_height / 2, big ? board.big_solid : board.small_solid});
  }
  return markers;
}

std::vector<Marker> bigDotMarkers(const Board& board) {
  const int left = (board.cols - board.inner_width) / 2;
  const int right = (board.cols + board.inner_width) / 2 - 1;
  const int top = (board.rows - board.inner_height) / 2;
  const int bottom = (board.rows + board.inner_height) / 2 - 1;
  // One column in at the upper left: that tells the board's four turns apart.
  return {{left, bottom, board.big_dot},
          {right, bottom, board.big_dot},
          {right, top, board.big_dot},
          {left + 1, top, board.big_dot}};
}

bool coveredBy(const Marker& marker, const Mark& mark) {
  const bool beside = std::abs(mark.column - marker.column) + std::abs(mark.row - marker.row) == 1;
  return beside && marker.radii.outer >= kCoversNeighbours;
}

}  // namespace

std::vector<Marker> markersOf(const Board& board) {
  return board.kind == BoardKind::kBigDots ? bigDotMarkers(board) : ringMarkers(board);
}

std::vector<Mark> marksOf(const Board& board) {
  const std::vector<Marker> markers = markersOf(board);
  std::vector<Mark> marks;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.cols; ++column) {
      Mark mark{row * board.cols + column, column, row, false, true, {board.dot_radius, 0.0, 0.0}};
      for (const Marker& marker : markers) {
        if (marker.column == column && marker.row == row) {
          mark.marker = true;
          mark.radii = marker.radii;
        }
        if (coveredBy(marker, mark)) mark.drawn = false;
      }
      marks.push_back(mark);
    }
  }
  return marks;
}

Point3 gridPoint(const Board& board, int column, int row) { return {column * board.step, row * rowStep(board), 0.0}; }

std::array<int, 4> innerCornerIds(const Board& board) {
  const int right = board.cols - 3;
  const int lower = (board.rows - 3) * board.cols;
  return {2 * board.cols + 2, 2 * board.cols + right, lower + 2, lower + right};
}

std::vector<Point3> boardPoints(const Board& board) {
  std::vector<Point3> points;
  for (const Mark& mark : marksOf(board)) points.push_back(gridPoint(board, mark.column, mark.row));
  return points;
}

}  // namespace scene
