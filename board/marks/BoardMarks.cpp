#include "board/marks/BoardMarks.h"

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

std::vector<BoardPlace> coveredBy(const Marker& marker) {
  if (!marker.big) return {};
  const auto& [column, row] = marker.place;
  return {{column - 1, row}, {column + 1, row}, {column, row - 1}, {column, row + 1}};
}

bool isOn(const BoardDescription& board, const BoardPlace& place) {
  return place.column >= 0 && place.column < board.cols && place.row >= 0 && place.row < board.rows;
}

std::size_t idOf(const BoardDescription& board, const BoardPlace& place) {
  const int id = place.row * board.cols + place.column;
  return static_cast<std::size_t>(id);
}

std::vector<Mark> marksOf(const BoardDescription& board) {
  std::vector<Mark> marks;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.cols; ++column) {
      marks.push_back({{column, row}, true, {board.dot_radius, 0.0, 0.0}});
    }
  }
  const auto at = [&](const BoardPlace& place) -> Mark& { return marks.at(idOf(board, place)); };
  const std::vector<Marker> markers = markersOf(board);
  for (const Marker& marker : markers) {
    for (const BoardPlace& place : coveredBy(marker)) {
      if (isOn(board, place)) at(place).drawn = false;
    }
  }
  for (const Marker& marker : markers) at(marker.place) = {marker.place, true, marker.radii};
  return marks;
}

}  // namespace boards
