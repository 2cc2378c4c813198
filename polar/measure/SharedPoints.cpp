#include "polar/measure/SharedPoints.h"

namespace {

void dropMissing(PointsById& points, const PointsById& others) {
  std::erase_if(points, [&others](const auto& entry) { return !others.contains(entry.first); });
}

}  // namespace

void keepFirst(PointsById& points, std::int32_t id, const cv::Point2f& pixel) { points.emplace(id, pixel); }

void appendShared(MeasuredPair& pair) {
  for (const auto& [id, pixel_left] : pair.left_by_id) {
    const auto right = pair.right_by_id.find(id);
    if (right == pair.right_by_id.end()) continue;
    pair.left_points.push_back(pixel_left);
    pair.right_points.push_back(right->second);
  }
}

void dropUnshared(MeasuredPair& pair) {
  dropMissing(pair.left_by_id, pair.right_by_id);
  dropMissing(pair.right_by_id, pair.left_by_id);
}
