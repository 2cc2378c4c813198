#include "diagnose/uncertainty/KnownNoise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// Two independent normal numbers (Box and Muller 1958).
cv::Vec2d normals(SeededRandom& random) {
  const double radius = std::sqrt(-2.0 * std::log(1.0 - random.uniform()));
  const double angle = 2.0 * std::numbers::pi * random.uniform();
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

}  // namespace

CentreNoise knownNoise(const std::vector<polarline::RefinedDot>& dots, SeededRandom& random) {
  CentreNoise noise;
  for (const polarline::RefinedDot& dot : dots) {
    if (dot.state != polarline::DotState::kRefined || !(dot.xx > 0.0)) continue;
    const cv::Vec2d drawn = normals(random);
    const double sd_x = std::sqrt(dot.xx);
    const double along = dot.xy / sd_x;
    const double across = std::sqrt(std::max(0.0, dot.yy - along * along));
    const cv::Vec2d shift(sd_x * drawn[0], along * drawn[0] + across * drawn[1]);
    noise.emplace(dot.id, NoisyCentre{{dot.x, dot.y}, shift});
  }
  return noise;
}
