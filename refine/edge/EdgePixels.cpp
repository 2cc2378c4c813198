#include "refine/edge/EdgePixels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace refine {
namespace {

/// Beyond the edge's reach, so that there is flat paper and ink to compare with.
constexpr double kFlatPixels = 0.6;
/// A neighbour's edge changes the grey by less than a thousandth beyond this, in standard deviations.
constexpr double kClear = 3.0;

/// A neighbour with the box that its edge blurs into.
struct Obstacle {
  const Neighbour* neighbour;
  double reach;
  cv::Point2d half;

  explicit Obstacle(const Neighbour& of)
      : neighbour(&of), reach(kClear * of.blur), half(of.outline.halfBox() + cv::Point2d(reach, reach)) {}

  bool boxHolds(double x, double y, const cv::Point2d& room) const {
    return std::abs(x - neighbour->outline.centre.x) <= half.x + room.x &&
           std::abs(y - neighbour->outline.centre.y) <= half.y + room.y;
  }
  bool blursInto(double x, double y) const {
    return boxHolds(x, y, {}) && edgePlace(neighbour->outline, x, y).outside() < reach;
  }
};

/// Those that come near to a box around a centre.
std::vector<Obstacle> obstaclesOf(const std::vector<Neighbour>& neighbours, const cv::Point2d& centre,
                                  const cv::Point2d& half) {
  std::vector<Obstacle> obstacles;
  for (const Neighbour& neighbour : neighbours) {
    const Obstacle obstacle(neighbour);
    if (obstacle.boxHolds(centre.x, centre.y, half)) obstacles.push_back(obstacle);
  }
  return obstacles;
}

/// Half the way from the first to the last column that is farther than `reach` within the innermost edge.
double hollowOf(const EdgeModel& model, double reach, double dy) {
  const double least = *std::min_element(model.ratio.begin(), model.ratio.begin() + static_cast<int>(model.edges));
  const double hollow = std::max(least * model.outline.leastRadius() - reach, 0.0);
  return std::sqrt(std::max(hollow * hollow - dy * dy, 0.0));
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
  const double reach = kEdgeReach * model.blur + kFlatPixels;
  const double on_edge = kOnEdge * model.blur;
  const cv::Point2d half = model.outline.halfBox() + cv::Point2d(reach, reach);
  const cv::Point2d centre = model.outline.centre;
  const std::vector<Obstacle> obstacles = obstaclesOf(neighbours, centre, half);
  table.clear({static_cast<int>(centre.x), static_cast<int>(centre.y)});
  const int last_row = static_cast<int>(std::floor(centre.y + half.y));
  const int last_column = static_cast<int>(std::floor(centre.x + half.x));
  for (int row = static_cast<int>(std::ceil(centre.y - half.y)); row <= last_row; ++row) {
    const double hollow = hollowOf(model, reach, row - centre.y);
    for (int column = static_cast<int>(std::ceil(centre.x - half.x)); column <= last_column; ++column) {
      if (std::abs(column - centre.x) < hollow) continue;
      const double t = nearestEdge(model, edgePlace(model.outline, column, row));
      if (std::abs(t) > reach) continue;
      const bool right_on = std::abs(t) < on_edge;
      counts.on_edge += right_on;
      const bool inside = row >= 0 && column >= 0 && row < picture.grey.rows && column < picture.grey.cols;
      counts.clipped += right_on && (!inside || picture.clipped.at<std::uint8_t>(row, column) != 0);
      if (!inside) continue;
      if (std::ranges::any_of(obstacles, [&](const Obstacle& each) { return each.blursInto(column, row); })) {
        counts.neighboured += right_on;
      } else {
        table.add(column, row, picture.grey.at<float>(row, column));
      }
    }
  }
  return counts;
}

}  // namespace refine
