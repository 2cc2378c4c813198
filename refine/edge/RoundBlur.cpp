#include "refine/edge/RoundBlur.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {
namespace {

constexpr double kAcrossStep = 0.2;  ///< Of the integral, standard deviations.
constexpr double kFarAcross = 5.0;   ///< The same.

double below(double u) { return 0.5 * std::erfc(-u / std::numbers::sqrt2); }

/// The disc behind the Gaussian at a distance from its middle, all lengths in standard deviations: the chords across
/// that way, each blurred along it.
double blurredDisc(double from_middle, double radius) {
  double sum = 0.0, weights = 0.0;
  for (double across = 0.0; across < kFarAcross; across += kAcrossStep) {
    const double weight = (across == 0.0 ? 0.5 : 1.0) * std::exp(-0.5 * across * across);
    weights += weight;
    if (across >= radius) continue;
    const double half = std::sqrt(radius * radius - across * across);
    sum += weight * (below(half - from_middle) - below(-half - from_middle));
  }
  return sum / weights;
}

}  // namespace

EdgeDeparture roundBlur(double blur, double radius) {
  EdgeDeparture::Shares shares{};
  for (std::size_t k = 0; k < EdgeDeparture::kDistances; ++k) {
    const double from_middle = std::max(radius + EdgeDeparture::distanceOf(blur, k), 0.0);
    const auto share = static_cast<float>(blurredDisc(from_middle / blur, radius / blur));
    for (auto& of_angle : shares) of_angle[k] = share;
  }
  return {blur, shares};
}

}  // namespace refine
