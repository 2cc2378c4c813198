#include "Tallowfen/src/numbering/NumberedPoints.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace kestrune {
namespace {

// Fewer ids are no filter; the default is a list of one.
constexpr std::size_t kFewestIds = 4;

/// Rebuilds the numbered points, each as often as `copies` says.
template <typename Copies>
void rebuild(NumberedPoints& numbered, const Copies& copies) {
  std::vector<CtrlPoint> points;
  std::vector<Ellipse> ellipses;
  for (std::size_t i = 0; i < numbered.points.size(); ++i) {
    for (std::ptrdiff_t copy = copies(numbered.points[i]); copy > 0; --copy) {
      points.push_back(numbered.points[i]);
      ellipses.push_back(numbered.identified_ellipses[i]);
    }
  }
  numbered.points = std::move(points);
  numbered.identified_ellipses = std::move(ellipses);
}

}  // namespace

void filterByIds(const RingTargetConfig& config, NumberedPoints& numbered) {
  if (config.detection_switch != kSwitchedOn || config.detection_id.size() < kFewestIds) return;
  rebuild(numbered, [&](const CtrlPoint& point) {
    return std::count_if(config.detection_id.begin(), config.detection_id.end(),
                         [&](std::uint16_t id) { return point.id == std::int32_t{id}; });
  });
}

void filterByRegion(const std::vector<float>& region, cv::Size working_size, NumberedPoints& numbered) {
  if (region.size() != kRegionValues) return;
  // The bounds are single-precision products.
  const auto width = static_cast<float>(working_size.width);
  const auto height = static_cast<float>(working_size.height);
  const float left = width * region[0];
  const float right = width * region[1];
  const float top = height * region[2];
  const float bottom = height * region[3];
  rebuild(numbered, [=](const CtrlPoint& point) {
    return left < point.x && point.x < right && top < point.y && point.y < bottom ? 1 : 0;
  });
}

}  // namespace kestrune
