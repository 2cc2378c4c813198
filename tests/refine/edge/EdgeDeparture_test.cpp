#include "refine/edge/EdgeDeparture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "refine/edge/DepartureAt.h"

namespace {

using refine::EdgeDeparture;

constexpr double kBlur = 0.8;

double smooth(double t) { return 0.5 * std::erfc(t / kBlur / std::sqrt(2.0)); }

/// Shares that are the smooth edge's, and more by what a function of the smaller part and the distance says.
template <typename More>
EdgeDeparture beside(const More& more) {
  EdgeDeparture::Shares shares{};
  for (std::size_t angle = 0; angle < EdgeDeparture::kAngles; ++angle) {
    for (std::size_t k = 0; k < EdgeDeparture::kDistances; ++k) {
      const double t = EdgeDeparture::distanceOf(kBlur, k);
      shares[angle][k] = static_cast<float>(smooth(t) + more(EdgeDeparture::smallerPartOf(angle), t));
    }
  }
  return {kBlur, shares};
}

TEST(EdgeDeparture, IsWhatSharesHaveBesideTheSmoothEdge) {
  const EdgeDeparture departure = beside([](double small, double t) { return 0.01 * t + 0.02 * small; });
  for (const float t : {-2.9F, -0.33F, 0.0F, 1.27F}) {
    EXPECT_NEAR(departureAt(departure, t, 1.0F, 0.0F), 0.01F * t, 1e-6F) << t;
    EXPECT_NEAR(departureAt(departure, t, -0.6F, 0.8F), 0.01F * t + 0.012F, 1e-6F) << t;
    EXPECT_NEAR(departureAt(departure, t, 0.8F, -0.6F), 0.01F * t + 0.012F, 1e-6F) << t;
  }
}

TEST(EdgeDeparture, IsNoneFarFromTheEdge) {
  const EdgeDeparture departure = beside([](double, double) { return 0.1; });
  EXPECT_NEAR(departureAt(departure, 3.1F, 1.0F, 0.0F), 0.1F, 1e-6F);
  EXPECT_EQ(departureAt(departure, 3.3F, 1.0F, 0.0F), 0.0F);
  EXPECT_EQ(departureAt(departure, -3.3F, 0.6F, 0.8F), 0.0F);
}

TEST(EdgeDeparture, IsAddedToTheSharesOfManyPlaces) {
  const EdgeDeparture departure = beside([](double, double t) { return 0.03 * t; });
  refine::Lanes t{-1.0F, 0.5F, 9.0F}, nx{1.0F, 0.0F, 1.0F}, ny{0.0F, 1.0F, 0.0F}, shares{0.9F, 0.3F, 0.0F};
  t.back() = 2.0F;
  ny.back() = -1.0F;
  departure.addDepartures(t, nx, ny, shares);
  EXPECT_NEAR(shares[0], 0.87F, 1e-6F);
  EXPECT_NEAR(shares[1], 0.315F, 1e-6F);
  EXPECT_EQ(shares[2], 0.0F);
  EXPECT_NEAR(shares.back(), 0.06F, 1e-6F);
}

TEST(EdgeDeparture, IsNoneAtADistanceThatIsNotANumberAndStaysInTheTableForSuchNormals) {
  const EdgeDeparture departure = beside([](double, double) { return 0.1; });
  const float none = std::nanf("");
  EXPECT_EQ(departureAt(departure, none, 1.0F, 0.0F), 0.0F);
  EXPECT_EQ(departureAt(departure, none, none, none), 0.0F);
  EXPECT_NEAR(departureAt(departure, 1.0F, none, none), 0.1F, 1e-6F);
}

}  // namespace
