#include "refine/edge/EdgeDeparture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {
namespace {

constexpr double kReach = 4.0;  ///< Standard deviations.
/// Of the unit normal's smaller part.
constexpr float kLargest = 0.5F * std::numbers::sqrt2_v<float>;

}  // namespace

double EdgeDeparture::reachOf(double blur) { return kReach * blur; }

double EdgeDeparture::distanceOf(double blur, std::size_t k) {
  return reachOf(blur) * (2.0 * static_cast<double>(k) / static_cast<double>(kDistances - 1) - 1.0);
}

double EdgeDeparture::smallerPartOf(std::size_t angle) {
  return static_cast<double>(kLargest) * static_cast<double>(angle) / static_cast<double>(kAngles - 1);
}

EdgeDeparture::EdgeDeparture(double blur, const Shares& shares)
    : reach_(static_cast<float>(reachOf(blur))),
      by_step_(static_cast<float>(static_cast<double>(kDistances - 1) / (2.0 * reachOf(blur)))) {
  for (std::size_t k = 0; k < kDistances; ++k) {
    const auto smooth = static_cast<float>(0.5 * std::erfc(distanceOf(blur, k) / blur / std::numbers::sqrt2));
    for (std::size_t angle = 0; angle < kAngles; ++angle) departures_[angle][k] = shares[angle][k] - smooth;
  }
}

float EdgeDeparture::departure(float t, float nx, float ny) const {
  const float place = (t + reach_) * by_step_;
  if (!(place >= 0.0F) || place >= static_cast<float>(kDistances - 1)) return 0.0F;
  const float small = std::min(std::min(std::abs(nx), std::abs(ny)) / kLargest, 0.999999F);
  const float turned = small * static_cast<float>(kAngles - 1);
  const auto angle = static_cast<std::size_t>(turned), k = static_cast<std::size_t>(place);
  const float across = turned - static_cast<float>(angle), along = place - static_cast<float>(k);
  const auto& below = departures_[angle];
  const auto& above = departures_[angle + 1];
  const float first = below[k] + along * (below[k + 1] - below[k]);
  const float second = above[k] + along * (above[k + 1] - above[k]);
  return first + across * (second - first);
}

void EdgeDeparture::addDepartures(std::ptrdiff_t n, const float* t, const float* nx, const float* ny,
                                  float* shares) const {
  for (std::ptrdiff_t i = 0; i < n; ++i) shares[i] += departure(t[i], nx[i], ny[i]);
}

}  // namespace refine
