#include "refine/edge/SampledBlur.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {
namespace {

constexpr double kPixelVariance = 1.0 / 12.0;
constexpr double kLeastVariance = 0.04;
constexpr int kMostTaps = 12;
constexpr double kReach = 4.0;  ///< Standard deviations.
/// Of the unit normal's smaller part.
constexpr float kLargest = 0.5F * std::numbers::sqrt2_v<float>;

/// The sampled Gaussian, one half with the middle.
struct Filter {
  std::array<double, kMostTaps + 1> weight{};
  int reach = 0;

  double at(int k) const { return weight[static_cast<std::size_t>(std::abs(k))]; }
};

Filter filterOf(double blur) {
  const double variance = std::max(blur * blur - kPixelVariance, kLeastVariance);
  Filter filter;
  filter.reach = std::min(static_cast<int>(std::ceil(kReach * std::sqrt(variance))), kMostTaps);
  double sum = 0.0;
  for (int k = 0; k <= filter.reach; ++k) sum += (k == 0 ? 1.0 : 2.0) * std::exp(-0.5 * k * k / variance);
  for (int k = 0; k <= filter.reach; ++k)
    filter.weight[static_cast<std::size_t>(k)] = std::exp(-0.5 * k * k / variance) / sum;
  return filter;
}

/// Integral of the positive part, squared and halved.
double ramp(double x) {
  const double positive = std::max(x, 0.0);
  return 0.5 * positive * positive;
}

/// Share of a unit square on the near side of a straight line at the distance t from its middle, whose normal is (a, b)
/// with both positive: the integral of a box of a width convolved with one of b.
double shareOf(double t, double a, double b) {
  const double wide = std::max(a, 1e-6), high = std::max(b, 1e-6);
  const double sum = 0.5 * (wide + high), difference = 0.5 * (wide - high);
  const double area = ramp(sum - t) - ramp(difference - t) - ramp(-difference - t) + ramp(-sum - t);
  return std::clamp(area / (wide * high), 0.0, 1.0);
}

/// Share of ink of a pixel at (x, y) from the middle of a circle, filtered.
double filteredShare(double x, double y, double radius, const Filter& filter) {
  double sum = 0.0;
  for (int row = -filter.reach; row <= filter.reach; ++row) {
    for (int column = -filter.reach; column <= filter.reach; ++column) {
      const double dx = x + column, dy = y + row;
      const double distance = std::max(std::sqrt(dx * dx + dy * dy), 1e-9);
      const double share = shareOf(distance - radius, std::abs(dx) / distance, std::abs(dy) / distance);
      sum += filter.at(row) * filter.at(column) * share;
    }
  }
  return sum;
}

}  // namespace

SampledBlur::SampledBlur(double blur, double radius) {
  const Filter filter = filterOf(blur);
  const double reach = kReach * blur, step = 2.0 * reach / static_cast<double>(kDistances - 1);
  reach_ = static_cast<float>(reach);
  by_step_ = static_cast<float>(1.0 / step);
  for (std::size_t angle = 0; angle < kAngles; ++angle) {
    const double small = static_cast<double>(kLargest) * static_cast<double>(angle) / static_cast<double>(kAngles - 1);
    const double large = std::sqrt(1.0 - small * small);
    for (std::size_t k = 0; k < kDistances; ++k) {
      const double t = -reach + step * static_cast<double>(k);
      const double smooth = 0.5 * std::erfc(t / blur / std::numbers::sqrt2);
      const double from_middle = std::max(radius + t, 0.0);
      shares_[angle][k] =
          static_cast<float>(filteredShare(from_middle * large, from_middle * small, radius, filter) - smooth);
    }
  }
}

float SampledBlur::departure(float t, float nx, float ny) const {
  const float place = (t + reach_) * by_step_;
  if (!(place >= 0.0F) || place >= static_cast<float>(kDistances - 1)) return 0.0F;
  const float small = std::min(std::min(std::abs(nx), std::abs(ny)) / kLargest, 0.999999F);
  const float turned = small * static_cast<float>(kAngles - 1);
  const auto angle = static_cast<std::size_t>(turned), k = static_cast<std::size_t>(place);
  const float across = turned - static_cast<float>(angle), along = place - static_cast<float>(k);
  const auto& below = shares_[angle];
  const auto& above = shares_[angle + 1];
  const float first = below[k] + along * (below[k + 1] - below[k]);
  const float second = above[k] + along * (above[k + 1] - above[k]);
  return first + across * (second - first);
}

void SampledBlur::addDepartures(std::ptrdiff_t n, const float* t, const float* nx, const float* ny,
                                float* shares) const {
  for (std::ptrdiff_t i = 0; i < n; ++i) shares[i] += departure(t[i], nx[i], ny[i]);
}

}  // namespace refine
