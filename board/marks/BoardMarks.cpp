#include "board/marks/BoardMarks.h"

#include <array>
#include <cstddef>
#include <opencv2/core.hpp>

#include "board/marks/DetectorConfig.h"

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardKind;
using polarline::BoardPlace;

BoardPlace placeOf(const cv::Point2f& cell) { return {static_cast<int>(cell.x), static_cast<int>(cell.y)}; }

std::vector<Marker> ringMarkers(const BoardDescription& board) {
  const kestrune::MarkerSizes sizes = markerSizes(board);
  const bool big_rings = !sizes.rings_small;
  std::vector<Marker> markers;
  for (const cv::Point2f& cell : kestrune::MarkerLayout(detectorConfig(board), sizes, 1.0F)) {
    markers.push_back({placeOf(cell), big_rings ? board.big_ring : board.small_ring, big_rings});
  }
  markers.front().radii = sizes.solid_big ? board.big_solid : board.small_solid;
  markers.front().big = sizes.solid_big;
  return markers;
}

std::vector<Marker> bigDotMarkers(const BoardDescription& board) {
  std::vector<Marker> markers;
  for (const BoardPlace& place : board.land_marks) markers.push_back({place, board.big_dot, false});
  if (!markers.empty()) return markers;
  for (const cv::Point2f& cell : kestrune::BigDotLayout(detectorConfig(board), 1, 1)) {
    markers.push_back({placeOf(cell), board.big_dot, false});
  }
  return markers;
}

}  // namespace

std::vector<Marker> markersOf(const BoardDescription& board) {
  return isRingBoard(board) ? ringMarkers(board) : bigDotMarkers(board);
}

std::vector<Mark> marksOf(const BoardDescription& board) {
  std::vector<Mark> marks;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.cols; ++column) {
      marks.push_back({{column, row}, true, {board.dot_radius, 0.0, 0.0}});
    }
  }
  const auto at = [&](int column, int row) -> Mark& {
    return marks.at(static_cast<std::size_t>(row * board.cols + column));
  };
  constexpr std::array<BoardPlace, 4> kBeside = {{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
  for (const Marker& marker : markersOf(board)) {
    at(marker.place.column, marker.place.row).radii = marker.radii;
    if (!marker.big) continue;
    for (const BoardPlace& step : kBeside) {
      const int column = marker.place.column + step.column;
      const int row = marker.place.row + step.row;
      if (column >= 0 && column < board.cols && row >= 0 && row < board.rows) at(column, row).drawn = false;
    }
  }
  return marks;
}

}  // namespace boards
