#include "polar/evaluate/frame/ExpectedPoint.h"

#include <cmath>
#include <limits>

namespace {

using kestrune::morvenkit::CtrlPoint;

/// A point this far away is another one, pixels.
constexpr double kSearchRadius = 100.0;

/// In single precision, as the limit above is meant for it.
float distanceOf(const cv::Point2f& expected_pixel, const CtrlPoint<double>& point) {
  const float dx = static_cast<float>(point.x) - expected_pixel.x;
  const float dy = static_cast<float>(point.y) - expected_pixel.y;
  return std::sqrt(dx * dx + dy * dy);
}

}  // namespace

bool MatchExpectedPoint(const cv::Point2f& expected_pixel, const std::vector<CtrlPoint<double>>& points,
                        std::int32_t id, CtrlPoint<double>& result) {
  double smallest = std::numeric_limits<double>::max();
  const CtrlPoint<double>* nearest = nullptr;
  for (const CtrlPoint<double>& point : points) {
    const float distance = distanceOf(expected_pixel, point);
    if (distance < smallest) {
      smallest = distance;
      nearest = &point;
    }
  }
  if (nearest == nullptr || !(smallest < kSearchRadius)) return false;
  result = *nearest;
  result.id = id;
  return true;
}
