#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

#include <cmath>
#include <limits>

namespace kestrune {
namespace {

/// No configuration gives this type, as its readers refuse it; the rule counts it among the boards without rings.
constexpr std::int32_t kUnreadBoard = 4;

}  // namespace

NearbyDots nearbyDotsOf(const RingTargetConfig& config, int image_width) {
  const bool by_ratio = config.board_type == kBigDotBoard || config.board_type == kUnreadBoard;
  return {by_ratio ? static_cast<double>(2.0F / config.ratio_solid) : 5.0, 2.0 * image_width / 640.0};
}

double MeanSemiAxisNear(const NearbyDots& nearby, const std::vector<Ellipse>& list, const Ellipse& ellipse) {
  const double reach = ellipse.semi_a * nearby.reach;
  double sum = 0.0;
  int count = 0;
  for (const Ellipse& member : list) {
    const bool near = std::abs(member.x - ellipse.x) < reach && std::abs(member.y - ellipse.y) < reach;
    if (!near || !(member.semi_a > nearby.least_semi_a)) continue;
    sum += member.semi_a;
    ++count;
  }
  return count == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / count;
}

}  // namespace kestrune
