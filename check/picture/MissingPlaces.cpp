#include "check/picture/MissingPlaces.h"

#include <array>
#include <map>
#include <utility>

namespace {

using Places = std::map<std::pair<int, int>, cv::Point2d>;  ///< By row and column.

constexpr std::array<std::pair<int, int>, 4> kDirections = {{{0, 1}, {0, -1}, {1, 0}, {-1, 0}}};

/// Appends the place to the list where the two next dots in one of the directions are there.
void carryOn(const Places& numbered, int row, int column, std::vector<cv::Point2d>& places) {
  cv::Point2d sum;
  int count = 0;
  for (const auto& [down, right] : kDirections) {
    const auto near = numbered.find({row + down, column + right});
    const auto far = numbered.find({row + 2 * down, column + 2 * right});
    if (near == numbered.end() || far == numbered.end()) continue;
    sum += 2.0 * near->second - far->second;
    ++count;
  }
  if (count > 0) places.push_back(sum / count);
}

}  // namespace

std::vector<cv::Point2d> missingPlaces(const polarline::Detection& detection) {
  Places numbered;
  for (const polarline::Dot& dot : detection.dots)
    numbered.emplace(std::pair(dot.row, dot.column), cv::Point2d(dot.x, dot.y));
  std::vector<cv::Point2d> places;
  for (const int id : detection.missing)
    carryOn(numbered, id / detection.board.columns, id % detection.board.columns, places);
  return places;
}
