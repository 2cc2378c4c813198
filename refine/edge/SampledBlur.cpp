#include "refine/edge/SampledBlur.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace refine {
namespace {

constexpr double kPixelVariance = 1.0 / 12.0;
constexpr double kLeastVariance = 0.04;
constexpr int kMostTaps = 12;
constexpr double kReach = 4.0;  ///< Standard deviations.

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

/// Share of a unit square at (x, y) from the middle of a disc that the disc covers.
double coveredShare(double x, double y, double radius) {
  // Beyond half a diagonal from the edge no square is cut.
  constexpr double kHalfDiagonal = 0.5 * std::numbers::sqrt2;
  const double squared = x * x + y * y, least = std::max(radius - kHalfDiagonal, 0.0), most = radius + kHalfDiagonal;
  if (squared >= most * most) return 0.0;
  if (squared < least * least) return 1.0;
  const double distance = std::max(std::sqrt(squared), 1e-9);
  return shareOf(distance - radius, std::abs(x) / distance, std::abs(y) / distance);
}

/// Share of ink of a pixel at (x, y) from the middle of a disc, filtered.
double filteredShare(double x, double y, double radius, const Filter& filter) {
  double sum = 0.0;
  for (int row = -filter.reach; row <= filter.reach; ++row) {
    double of_row = 0.0;
    for (int column = -filter.reach; column <= filter.reach; ++column)
      of_row += filter.at(column) * coveredShare(x + column, y + row, radius);
    sum += filter.at(row) * of_row;
  }
  return sum;
}

}  // namespace

EdgeDeparture sampledBlur(double blur, double radius) {
  const Filter filter = filterOf(blur);
  EdgeDeparture::Shares shares{};
  for (std::size_t angle = 0; angle < EdgeDeparture::kAngles; ++angle) {
    const double small = EdgeDeparture::smallerPartOf(angle), large = std::sqrt(1.0 - small * small);
    for (std::size_t k = 0; k < EdgeDeparture::kDistances; ++k) {
      const double from_middle = std::max(radius + EdgeDeparture::distanceOf(blur, k), 0.0);
      shares[angle][k] = static_cast<float>(filteredShare(from_middle * large, from_middle * small, radius, filter));
    }
  }
  return {blur, shares};
}

}  // namespace refine
