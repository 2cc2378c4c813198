#include "board/describe/MarkerRules.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "Tallowfen/src/markers/OrderQuad.h"
#include "board/describe/SeedBlock.h"
#include "board/marks/BoardMarks.h"
#include "board/marks/DetectorConfig.h"
#include "polarline/errors.h"

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardPlace;
using polarline::InputError;

/// What one must lead by where the detector takes the nearest or the farthest, so that a slanted view keeps the order.
constexpr double kLead = 1.05;
constexpr double kFarthestLead = 1.04;  ///< Of a rectangle of 17 x 13 dots and of smaller ones.

std::string named(const BoardPlace& place) { return fmt::format("({}, {})", place.column, place.row); }

cv::Point2d truePoint(const BoardDescription& board, const BoardPlace& place) {
  return {place.column * board.step, place.row * rowStep(board)};
}

double distance(const BoardDescription& board, const BoardPlace& a, const BoardPlace& b) {
  return cv::norm(truePoint(board, a) - truePoint(board, b));
}

void checkOnBoard(const BoardDescription& board, const std::vector<Marker>& markers) {
  for (const Marker& marker : markers) {
    if (isOn(board, marker.place)) continue;
    throw InputError("board", fmt::format("a marker would stand at column and row {}, beyond the board's {} x {} dots: "
                                          "the rectangle of the markers is too large",
                                          named(marker.place), board.cols, board.rows));
  }
}

/// Throws if the ink of a marker comes too near to that of another mark.
void checkApart(const BoardDescription& board, const std::vector<Marker>& markers) {
  constexpr double kLeastGap = 0.1;  // Of a pitch.
  const std::vector<Mark> marks = marksOf(board);
  for (const Marker& marker : markers) {
    for (const Mark& mark : marks) {
      const bool itself = mark.place.column == marker.place.column && mark.place.row == marker.place.row;
      if (itself || !mark.drawn) continue;
      const double gap = distance(board, marker.place, mark.place) / board.step - marker.radii.outer - mark.radii.outer;
      if (gap >= kLeastGap) continue;
      throw InputError("board", fmt::format("the marks at {} and {} would touch: found a gap of {:.2f} pitches, wanted "
                                            "at least {}",
                                            named(marker.place), named(mark.place), gap, kLeastGap));
    }
  }
}

/// The rings are told apart by their distances from the solid one; the two on the right by angles as well, unless the
/// solid ring alone is big.
void checkRings(const BoardDescription& board, const std::vector<Marker>& markers) {
  const auto away = [&](std::size_t ring) { return distance(board, markers[0].place, markers[ring].place); };
  const double upper_left = away(1);
  const double upper_right = away(2);
  const double lower_right = away(3);
  const double lower_left = away(4);
  const bool by_distance_alone = board.kind == polarline::BoardKind::kMixedRings;
  const bool apart = lower_left >= kLead * upper_left && std::min(upper_right, lower_right) >= kLead * lower_left &&
                     (!by_distance_alone || lower_right >= kLead * upper_right);
  if (apart) return;
  throw InputError(
      "board",
      "the rings can't be told apart: seen from the solid ring the upper left one must be the nearest, then "
      "the lower left, the upper right and the lower right one. A wider or a lower rectangle would do");
}

std::string placesText(const BoardDescription& board, const std::vector<cv::Point2f>& points) {
  std::string text;
  for (const cv::Point2f& point : points) {
    text += fmt::format("{}({:.0f}, {:.0f})", text.empty() ? "" : " ", point.x / board.step, point.y / rowStep(board));
  }
  return text;
}

double farthestLead(const std::vector<cv::Point2f>& points) {
  const cv::Point2f mean = (points[0] + points[1] + points[2] + points[3]) / 4.0F;
  std::array<double, 4> distances{};
  std::ranges::transform(points, distances.begin(), [&](const cv::Point2f& point) { return cv::norm(point - mean); });
  std::ranges::sort(distances);
  return distances[3] / distances[2];
}

/// The big dots are told apart by their shape alone.
void checkBigDots(const BoardDescription& board, const std::vector<Marker>& markers) {
  std::vector<cv::Point2f> points;
  points.reserve(markers.size());
  for (const Marker& marker : markers) points.emplace_back(truePoint(board, marker.place));
  std::vector<cv::Point2f> ordered;
  if (!kestrune::OrderQuad(points, ordered)) {
    throw InputError("board", "the four big dots " + placesText(board, points) +
                                  " can't be told apart: wanted three of them on corners of a rectangle and the fourth "
                                  "beside its corner");
  }
  if (farthestLead(points) < kFarthestLead) {
    throw InputError("board", "the four big dots " + placesText(board, points) +
                                  " would be mistaken for each other in a slanted view: one must be the farthest from "
                                  "their mean by 4 %. A smaller rectangle, such as 5 x 5, would do");
  }
  if (ordered != points) {
    throw InputError("board", "the land marks are not in the detector's order: found " + placesText(board, points) +
                                  ", wanted " + placesText(board, ordered));
  }
}

}  // namespace

void checkMarkers(const BoardDescription& board) {
  const std::vector<Marker> markers = markersOf(board);
  checkOnBoard(board, markers);
  checkApart(board, markers);
  isRingBoard(board) ? checkRings(board, markers) : checkBigDots(board, markers);
  if (board.numbering == polarline::BoardNumbering::kGrowth && !seedMarker(board)) {
    throw InputError(
        "board",
        "no marker has all its eight neighbours to itself, so the numbering can't begin: the markers stand "
        "too near to each other or to the board's rim");
  }
}

}  // namespace boards
