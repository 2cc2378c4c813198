#include "diagnose/quality/DotFrames.h"

#include <cmath>
#include <map>
#include <optional>

namespace diagnose {
namespace {

using Places = std::map<std::int32_t, cv::Point2d>;

/// The way to the next dot of a line of the grid, from those neighbours that are there.
std::optional<cv::Point2d> stepAlong(const Places& places, std::int32_t id, std::int32_t next, bool has_before,
                                     bool has_behind) {
  const auto before = has_before ? places.find(id - next) : places.end();
  const auto behind = has_behind ? places.find(id + next) : places.end();
  if (before != places.end() && behind != places.end()) return (behind->second - before->second) * 0.5;
  if (behind != places.end()) return behind->second - places.at(id);
  if (before != places.end()) return places.at(id) - before->second;
  return std::nullopt;
}

}  // namespace

std::vector<DotFrame> dotFrames(const std::vector<NumberedDot>& dots, const DotGrid& grid) {
  Places places;
  for (const NumberedDot& dot : dots) {
    if (dot.id >= 0 && dot.id < grid.rows * grid.columns) places.emplace(dot.id, dot.pixel);
  }
  std::vector<DotFrame> frames;
  for (const auto& [id, pixel] : places) {
    const int column = id % grid.columns;
    const auto across = stepAlong(places, id, 1, column > 0, column + 1 < grid.columns);
    const auto down = stepAlong(places, id, grid.columns, true, true);
    if (!across || !down) continue;
    const cv::Matx22d axes(across->x, down->x / grid.row_step, across->y, down->y / grid.row_step);
    if (std::abs(cv::determinant(axes)) > 1.0) frames.push_back({pixel, axes});
  }
  return frames;
}

}  // namespace diagnose
