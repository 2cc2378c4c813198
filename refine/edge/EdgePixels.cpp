#include "refine/edge/EdgePixels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace refine {
namespace {

/// Beyond the edge's reach, so that there is flat paper and ink to compare with.
constexpr double kFlat = 0.6;
/// A neighbour's edge changes the grey by less than a thousandth beyond this, in standard deviations.
constexpr double kClear = 3.0;

bool blursInto(const std::vector<Neighbour>& neighbours, double x, double y) {
  return std::ranges::any_of(neighbours, [x, y](const Neighbour& neighbour) {
    const double reach = kClear * neighbour.blur;
    const cv::Point2d half = neighbour.outline.halfBox();
    return std::abs(x - neighbour.outline.centre.x) <= half.x + reach &&
           std::abs(y - neighbour.outline.centre.y) <= half.y + reach &&
           edgePlace(neighbour.outline, x, y).outside() < reach;
  });
}

/// Signed distance from the nearest of the model's edges.
double nearestEdge(const EdgeModel& model, const EdgePlace& place) {
  double nearest = place.outside();
  for (std::size_t k = 1; k < model.edges; ++k) {
    const double t = place.along - model.ratio[k] * place.reach;
    if (std::abs(t) < std::abs(nearest)) nearest = t;
  }
  return nearest;
}

}  // namespace

EdgeCounts collectEdgePixels(const GreyPicture& picture, const EdgeModel& model,
                             const std::vector<Neighbour>& neighbours, EdgeTable& table) {
  EdgeCounts counts;
  const double reach = kEdgeReach * model.blur + kFlat;
  const double on_edge = kOnEdge * model.blur;
  const cv::Point2d half = model.outline.halfBox() + cv::Point2d(reach, reach);
  const cv::Point2d centre = model.outline.centre;
  table.clear({static_cast<int>(centre.x), static_cast<int>(centre.y)});
  const int last_row = static_cast<int>(std::floor(centre.y + half.y));
  const int last_column = static_cast<int>(std::floor(centre.x + half.x));
  for (int row = static_cast<int>(std::ceil(centre.y - half.y)); row <= last_row; ++row) {
    for (int column = static_cast<int>(std::ceil(centre.x - half.x)); column <= last_column; ++column) {
      const double t = nearestEdge(model, edgePlace(model.outline, column, row));
      if (std::abs(t) > reach) continue;
      const bool right_on = std::abs(t) < on_edge;
      counts.on_edge += right_on;
      const bool inside = row >= 0 && column >= 0 && row < picture.grey.rows && column < picture.grey.cols;
      counts.clipped += right_on && (!inside || picture.clipped.at<std::uint8_t>(row, column) != 0);
      if (!inside) continue;
      if (blursInto(neighbours, column, row)) {
        counts.neighboured += right_on;
      } else {
        table.add(column, row, picture.grey.at<float>(row, column));
      }
    }
  }
  return counts;
}

}  // namespace refine
