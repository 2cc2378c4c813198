#include "check/picture/MarkerSpans.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <opencv2/core.hpp>
#include <utility>
#include <vector>

namespace {

using Corners = std::array<cv::Point2f, 4>;

/// A dot nearer to the line between two markers than this share of its radius stands on it.
constexpr double kOnLine = 0.7;
/// A dot is that of a marker within so many pixels.
constexpr double kSamePlace = 0.5;
/// Gaps between dots that stand side by side differ by less, however slanted the board.
constexpr double kEven = 1.6;

/// The four corners in cyclic order, and the solid ring of a ring board. None for another number of markers.
struct Rectangle {
  Corners corners;
  std::optional<cv::Point2f> solid;
};

std::optional<Rectangle> rectangleOf(const SeenPicture& seen) {
  std::vector<cv::Point2f> markers = seen.trace.markers;
  Rectangle rectangle;
  if (!isBigDotBoard(seen) && markers.size() == 5) {
    rectangle.solid = markers.front();
    markers.erase(markers.begin());
  }
  if (markers.size() != rectangle.corners.size()) return std::nullopt;
  const cv::Point2f mean = (markers[0] + markers[1] + markers[2] + markers[3]) * 0.25F;
  std::ranges::sort(markers, {}, [&](const cv::Point2f& p) { return std::atan2(p.y - mean.y, p.x - mean.x); });
  std::ranges::copy(markers, rectangle.corners.begin());
  return rectangle;
}

/// Where the point stands on the line from a to b, 0 to 1; none beside it and at its ends.
std::optional<double> placeBetween(const cv::Point2f& point, const cv::Point2f& a, const cv::Point2f& b, double reach) {
  const cv::Point2d along = b - a;
  const cv::Point2d from = point - a;
  const double length = std::hypot(along.x, along.y);
  const double place = from.dot(along) / length;
  if (place <= reach || place >= length - reach || std::abs(from.cross(along)) / length >= reach) return std::nullopt;
  return place / length;
}

/// Dots between two corners; -1 where they are not evenly spaced, as one is covered or a speck among them.
int countBetween(const SeenPicture& seen, const cv::Point2f& a, const cv::Point2f& b) {
  std::vector<double> places = {0.0, 1.0};
  for (const auto& ellipse : seen.trace.ellipses) {
    const cv::Point2f centre(static_cast<float>(ellipse.x), static_cast<float>(ellipse.y));
    if (const auto place = placeBetween(centre, a, b, kOnLine * seen.dot_radius)) places.push_back(*place);
  }
  std::ranges::sort(places);
  double least = 1.0;
  double most = 0.0;
  for (std::size_t k = 1; k < places.size(); ++k) {
    least = std::min(least, places[k] - places[k - 1]);
    most = std::max(most, places[k] - places[k - 1]);
  }
  return most < kEven * least ? static_cast<int>(places.size()) - 2 : -1;
}

/// Dots between the corners k and k + 1, for each k.
std::array<int, 4> countsOf(const SeenPicture& seen, const Corners& corners) {
  std::array<int, 4> counts{};
  for (std::size_t k = 0; k < counts.size(); ++k)
    counts.at(k) = countBetween(seen, corners.at(k), corners.at((k + 1) % 4));
  return counts;
}

/// The solid ring stands on a side of as many rows.
std::optional<MarkerSpan> ringSpan(const SeenPicture& seen, const Rectangle& rectangle) {
  const std::array<int, 4> n = countsOf(seen, rectangle.corners);
  if (!rectangle.solid || n[0] != n[2] || n[1] != n[3] || n[0] < 0 || n[1] < 0) return std::nullopt;
  const auto holdsSolid = [&](std::size_t k) {
    return placeBetween(*rectangle.solid, rectangle.corners.at(k), rectangle.corners.at((k + 1) % 4),
                        kOnLine * seen.dot_radius)
        .has_value();
  };
  const bool first = holdsSolid(0) || holdsSolid(2);
  if (first == (holdsSolid(1) || holdsSolid(3))) return std::nullopt;
  return first ? MarkerSpan{n[1] + 2, n[0] + 2} : MarkerSpan{n[0] + 2, n[1] + 2};
}

/// One big dot stands a column further in, so that no dot is on one side, and a dot less on one of its neighbours.
std::optional<MarkerSpan> bigDotSpan(const SeenPicture& seen, const Rectangle& rectangle) {
  const std::array<int, 4> n = countsOf(seen, rectangle.corners);
  if (std::ranges::count(n, 0) != 1 || std::ranges::count(n, -1) != 0) return std::nullopt;
  const auto slanted = static_cast<std::size_t>(std::ranges::find(n, 0) - n.begin());
  const auto [narrow, wide] = std::minmax(n.at((slanted + 1) % 4), n.at((slanted + 3) % 4));
  if (wide != narrow + 1) return std::nullopt;
  return MarkerSpan{wide + 2, n.at((slanted + 2) % 4) + 2};
}

/// The numbered dots at the markers' places; fewer where a marker has none.
std::vector<polarline::Dot> markerDots(const polarline::Detection& detection, const char* kind) {
  std::vector<polarline::Dot> dots;
  for (const auto& ellipse : detection.ellipses) {
    if (!ellipse.marker || ellipse.kind != kind) continue;
    const auto dot = std::ranges::find_if(detection.dots, [&](const polarline::Dot& each) {
      return std::hypot(each.x - ellipse.x, each.y - ellipse.y) < kSamePlace;
    });
    if (dot != detection.dots.end()) dots.push_back(*dot);
  }
  return dots;
}

/// What the numbers of the four corner markers span.
std::optional<MarkerSpan> numberedSpan(const SeenPicture& seen, const polarline::Detection& detection) {
  const auto dots = markerDots(detection, isBigDotBoard(seen) ? "big_dot" : "ring");
  if (seen.big_rings || dots.size() != 4) return std::nullopt;
  const auto [left, right] = std::ranges::minmax(dots, {}, &polarline::Dot::column);
  const auto [top, bottom] = std::ranges::minmax(dots, {}, &polarline::Dot::row);
  return MarkerSpan{right.column - left.column + 1, bottom.row - top.row + 1};
}

/// Above 0: as many more blocks of three dots turn the way the board's do than turn the other way.
int turnOf(const polarline::Detection& detection) {
  std::map<std::pair<int, int>, const polarline::Dot*> at;
  for (const polarline::Dot& dot : detection.dots) at[{dot.row, dot.column}] = &dot;
  int turn = 0;
  for (const auto& [place, dot] : at) {
    const auto right = at.find({place.first, place.second + 1});
    const auto below = at.find({place.first + 1, place.second});
    if (right == at.end() || below == at.end()) continue;
    const cv::Point2d along(right->second->x - dot->x, right->second->y - dot->y);
    const cv::Point2d down(below->second->x - dot->x, below->second->y - dot->y);
    turn += along.cross(down) > 0.0 ? 1 : -1;
  }
  return turn;
}

}  // namespace

std::optional<MarkerSpan> countedSpan(const SeenPicture& seen) {
  const auto rectangle = rectangleOf(seen);
  if (!rectangle || seen.big_rings || seen.dot_radius <= 0.0) return std::nullopt;
  return isBigDotBoard(seen) ? bigDotSpan(seen, *rectangle) : ringSpan(seen, *rectangle);
}

std::string spanProblem(const kestrune::RingTargetConfig& config, const std::optional<MarkerSpan>& span) {
  if (!span || (span->columns == config.inner_width && span->rows == config.inner_height)) return {};
  const bool is_exchanged = span->columns == config.inner_height && span->rows == config.inner_width;
  return fmt::format(
      "the markers of the picture span {0} columns and {1} rows (inner={0}x{1}), by inner_width and inner_height of "
      "the target they should span {2} and {3}{4}",
      span->columns, span->rows, config.inner_width, config.inner_height,
      is_exchanged ? ": columns and rows are exchanged" : "");
}

void warnOfNumbering(const SeenPicture& seen, polarline::Detection& detection) {
  if (!detection.found) return;
  // Markers that were taken for one another may turn the numbers, too; then they run off the board.
  const bool run_off = std::ranges::count(detection.warnings, "strange_ids", &polarline::Warning::code) != 0;
  if (!run_off && turnOf(detection) < 0) {
    detection.warnings.push_back({"mirrored_board",
                                  "the dots are numbered the other way round than the board's: the picture, or the "
                                  "print, is mirrored",
                                  "take the picture as the camera sees it, or print the board as it was drawn"});
  }
  const auto span = countedSpan(seen);
  const std::string problem = spanProblem(seen.config, span);
  // Markers that were taken for one another give numbers that span anything.
  if (!problem.empty() && span == numberedSpan(seen, detection))
    detection.warnings.push_back(
        {"marker_span", problem + ", so that all numbers are shifted", "correct inner_width and inner_height"});
}
