#include "refine/edge/RoundBlur.h"

#include <gtest/gtest.h>

#include <cmath>

#include "refine/edge/DepartureAt.h"

namespace {

/// Share of a disc behind a Gaussian at a distance from its middle, by adding up small squares.
double blurredDisc(double from_middle, double radius, double blur) {
  constexpr double kStep = 0.02;
  double sum = 0.0;
  for (double y = -radius + 0.5 * kStep; y < radius; y += kStep) {
    for (double x = -radius + 0.5 * kStep; x < radius; x += kStep) {
      if (x * x + y * y >= radius * radius) continue;
      const double squared = (x - from_middle) * (x - from_middle) + y * y;
      sum += std::exp(-0.5 * squared / (blur * blur));
    }
  }
  return sum * kStep * kStep / (2.0 * M_PI * blur * blur);
}

TEST(RoundBlur, IsThatOfADiscBehindAGaussian) {
  constexpr double kRadius = 2.8, kBlur = 0.76;
  const refine::EdgeDeparture departure = refine::roundBlur(kBlur, kRadius);
  for (const double t : {-2.0, -0.9, -0.2, 0.0, 0.4, 1.1, 2.3}) {
    const double smooth = 0.5 * std::erfc(t / kBlur / std::sqrt(2.0));
    const double expected = blurredDisc(kRadius + t, kRadius, kBlur) - smooth;
    EXPECT_NEAR(departureAt(departure, static_cast<float>(t), 1.0F, 0.0F), expected, 5e-4) << t;
    EXPECT_NEAR(departureAt(departure, static_cast<float>(t), -0.6F, 0.8F), expected, 5e-4) << t;
  }
}

/// To first order in the blur by the radius the edge is moved inward by s^2 / (2 r).
TEST(RoundBlur, OfALargeDiscIsAShiftOfItsEdge) {
  constexpr double kRadius = 40.0, kBlur = 0.8;
  const refine::EdgeDeparture departure = refine::roundBlur(kBlur, kRadius);
  const double slope = 1.0 / (kBlur * std::sqrt(2.0 * M_PI));
  EXPECT_NEAR(departureAt(departure, 0.0F, 1.0F, 0.0F), -slope * kBlur * kBlur / (2.0 * kRadius), 2e-4);
}

}  // namespace
