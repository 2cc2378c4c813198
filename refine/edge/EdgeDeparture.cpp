#include "refine/edge/EdgeDeparture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "platform/WideLoops.h"

namespace refine {
namespace {

constexpr double kReach = 4.0;  ///< Standard deviations.
/// Of the unit normal's smaller part.
constexpr float kLargest = 0.5F * std::numbers::sqrt2_v<float>;

/// The table as it is read: row by row, `kDistances` entries a row.
struct Departures {
  const float* entries;
  float reach, by_step;
};

PLP_WIDE_LOOPS void addFrom(const Departures& of, const Lanes& t, const Lanes& nx, const Lanes& ny, Lanes& shares) {
  constexpr auto kColumns = static_cast<std::int32_t>(EdgeDeparture::kDistances);
  std::array<std::int32_t, kLanes> entry;
  Lanes within, along, across;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float place = (t[i] + of.reach) * of.by_step;
    const bool is_within = place >= 0.0F && place < static_cast<float>(kColumns - 1);
    const float held = is_within ? place : 0.0F;
    const float part = std::min(std::abs(nx[i]), std::abs(ny[i])) / kLargest;
    const float small = part < 0.999999F ? part : 0.999999F;  // What is not a number has a place in the table, too.
    const float turned = small * static_cast<float>(EdgeDeparture::kAngles - 1);
    const auto angle = static_cast<std::int32_t>(turned), k = static_cast<std::int32_t>(held);
    entry[i] = angle * kColumns + k;
    within[i] = is_within ? 1.0F : 0.0F;
    along[i] = held - static_cast<float>(k);
    across[i] = turned - static_cast<float>(angle);
  }
  std::array<Lanes, 2> below, above;  // At this distance and the next one.
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float* const at = of.entries + entry[i];
    below[0][i] = at[0];
    below[1][i] = at[1];
    above[0][i] = at[kColumns];
    above[1][i] = at[kColumns + 1];
  }
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float first = below[0][i] + along[i] * (below[1][i] - below[0][i]);
    const float second = above[0][i] + along[i] * (above[1][i] - above[0][i]);
    shares[i] += within[i] * (first + across[i] * (second - first));
  }
}

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

void EdgeDeparture::addDepartures(const Lanes& t, const Lanes& nx, const Lanes& ny, Lanes& shares) const {
  addFrom({departures_.front().data(), reach_, by_step_}, t, nx, ny, shares);
}

}  // namespace refine
