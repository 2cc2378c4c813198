#include "diagnose/warnings/PictureChange.h"

#include <cmath>
#include <limits>

#include "diagnose/warnings/Thresholds.h"

namespace diagnose {
namespace {

double misfitOf(const SeenBoard& seen, const PictureChange& change) {
  std::vector<BoardSight> sights = seen.sights;
  for (BoardSight& sight : sights) change(sight, seen);
  const auto place = placeBoard(*seen.camera, sights);
  if (!place || place->fitting < thresholds::kFittingShare || place->R(2, 2) < 0.0)
    return std::numeric_limits<double>::infinity();
  return place->rms;
}

}  // namespace

PictureChange resized(double times) {
  const cv::Point2d corner(0.5, 0.5);
  return [=](BoardSight& sight, const SeenBoard&) { sight.pixel = (sight.pixel + corner) * times - corner; };
}

PictureChange shifted(const cv::Point2d& by) {
  return [=](BoardSight& sight, const SeenBoard&) { sight.pixel += by; };
}

PictureChange mirrored(bool is_x, bool is_y) {
  return [=](BoardSight& sight, const SeenBoard& seen) {
    if (is_x) sight.pixel.x = seen.size.width - 1 - sight.pixel.x;
    if (is_y) sight.pixel.y = seen.size.height - 1 - sight.pixel.y;
    if (is_x != is_y) sight.board.x = -sight.board.x;
  };
}

PictureChange countedFromOtherEdge(bool is_x, bool is_y) {
  return [=](BoardSight& sight, const SeenBoard& seen) {
    const cv::Point2d& centre = seen.camera->centre();
    if (is_x) sight.pixel.x += 2.0 * centre.x - (seen.size.width - 1);
    if (is_y) sight.pixel.y += 2.0 * centre.y - (seen.size.height - 1);
  };
}

PictureChange rowsApart(double times) {
  return [=](BoardSight& sight, const SeenBoard&) { sight.board.y *= times; };
}

std::vector<double> misfitsWith(const std::vector<SeenBoard>& pictures, const PictureChange& change) {
  std::vector<double> misfits;
  misfits.reserve(pictures.size());
  for (const SeenBoard& seen : pictures) misfits.push_back(misfitOf(seen, change));
  return misfits;
}

double rmsOf(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value * value;
  return std::sqrt(sum / static_cast<double>(values.size()));
}

}  // namespace diagnose
