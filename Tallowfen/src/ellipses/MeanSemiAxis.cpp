#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

#include <cmath>
#include <limits>

namespace kestrune {
namespace {

// Pixels at 640 columns; at other widths in proportion.
constexpr double kSpeckSize = 2.0;
constexpr double kSpeckWidth = 640.0;
// Of a ring board's markers, in their semi-axes.
constexpr double kReachOnRingBoards = 5.0;
// Of the other boards' markers, in pitches of 1 / `ratio_solid` radii of a dot; the marker is taken for a dot.
constexpr float kReachOnOtherBoards = 2.0F;

// No reader of configurations lets this type pass. Here it counts among the boards without rings: meant.
constexpr std::int32_t kUnreadBoard = 4;

}  // namespace

NearbyDots nearbyDotsOf(const RingTargetConfig& config, int image_width) {
  const bool by_ratio = config.board_type == kBigDotBoard || config.board_type == kUnreadBoard;
  return {by_ratio ? static_cast<double>(kReachOnOtherBoards / config.ratio_solid) : kReachOnRingBoards,
          kSpeckSize * image_width / kSpeckWidth};
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
