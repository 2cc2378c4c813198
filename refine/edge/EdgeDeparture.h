#pragma once

#include <array>
#include <cstddef>

#include "refine/edge/Lanes.h"

namespace refine {

/// What the edges of a picture's marks have beside that of a straight line behind a smooth blur, by their distance and
/// direction. It depends on these alone as long as marks are about of one size, so it is worked out once a picture.
class EdgeDeparture {
 public:
  static constexpr std::size_t kAngles = 13;
  static constexpr std::size_t kDistances = 81;
  /// By the smaller part of the normal, 0 to the root of a half, and by the distance, from -reach to reach.
  using Shares = std::array<std::array<float, kDistances>, kAngles>;

  /// Of the shares of ink themselves. `blur`: standard deviation of the smooth edge, pixels; they reach as far as
  /// `reachOf` says.
  EdgeDeparture(double blur, const Shares& shares);
  static double reachOf(double blur);
  /// Distance of an entry, and the smaller part of its normal.
  static double distanceOf(double blur, std::size_t k);
  static double smallerPartOf(std::size_t angle);

  /// Adds to shares of ink what they have beyond those of the smooth edge, at the distances t outside of an edge with
  /// the unit normals (nx, ny).
  void addDepartures(const Lanes& t, const Lanes& nx, const Lanes& ny, Lanes& shares) const;

 private:
  float reach_ = 0.0F;    ///< Beyond this distance there is none.
  float by_step_ = 0.0F;  ///< Places of the table by pixel.
  Shares departures_{};
};

}  // namespace refine
