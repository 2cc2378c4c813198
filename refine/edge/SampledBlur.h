#pragma once

#include <array>
#include <cstddef>

namespace refine {

/// What the edges of a picture that is blurred behind its pixels have beside a smooth edge. A lens blurs before the
/// pixels see it, and its edges are smooth. After a filter behind them each pixel still tells how it was cut by the
/// edge, and a smooth model is some thousandths of a pixel off, differently for each dot.
///
/// The share of each pixel's square that is covered, filtered by the sampled Gaussian, depends on the distance and the
/// direction of the edge alone, as long as marks are about of one size. So it is worked out once a picture.
class SampledBlur {
 public:
  /// `blur`: standard deviation of the edges, the pixel's own width in it; `radius`: of the marks; pixels.
  SampledBlur(double blur, double radius);

  /// Share of ink beyond that of the smooth edge at the distance t outside of an edge with the unit normal (nx, ny).
  float departure(float t, float nx, float ny) const;
  /// Adds the departures of n places to `shares`.
  void addDepartures(std::ptrdiff_t n, const float* t, const float* nx, const float* ny, float* shares) const;

 private:
  static constexpr std::size_t kAngles = 13;
  static constexpr std::size_t kDistances = 81;

  float reach_ = 0.0F;                                           ///< Beyond this distance there is none.
  float by_step_ = 0.0F;                                         ///< Places of the table by pixel.
  std::array<std::array<float, kDistances>, kAngles> shares_{};  ///< By the smaller part of the normal, and by t.
};

}  // namespace refine
