#include "diagnose/quality/EdgeSpread.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace diagnose {
namespace {

/// A disc of radius 6 pixels (0.3 steps of 20) whose edge is an error function of another width in x than in y.
DotLook discWith(double sigma_x, double sigma_y) {
  DotLook look;
  look.dot = 20.0;
  look.ground = 220.0;
  look.radius = 0.3;
  look.axes_scale = 20.0;
  for (int y = -10; y <= 10; ++y) {
    for (int x = -10; x <= 10; ++x) {
      const double distance = std::hypot(x + 0.3, y - 0.2);
      const double normal = std::atan2(y - 0.2, x + 0.3);
      const double sigma = std::hypot(sigma_x * std::cos(normal), sigma_y * std::sin(normal));
      const double share = 0.5 * (1.0 + std::erf((distance - 6.0) / (sigma * std::numbers::sqrt2)));
      look.pixels.push_back({20.0 + 200.0 * share, distance / 20.0, 20.0, normal, 0.0});
    }
  }
  return look;
}

std::optional<EdgeWidths> widthsOf(double sigma_x, double sigma_y) {
  EdgeSpread spread;
  for (int k = 0; k < 8; ++k) spread.add(discWith(sigma_x, sigma_y));
  return spread.widths();
}

TEST(EdgeSpread, IsThatOfTheEdge) {
  for (const double sigma : {0.7, 1.0, 2.0}) {
    const auto widths = widthsOf(sigma, sigma);
    ASSERT_TRUE(widths);
    EXPECT_NEAR(widths->mean, sigma, 0.06 * sigma);
  }
}

TEST(EdgeSpread, TellsTheWiderDirection) {
  const auto across = widthsOf(2.0, 1.0);
  ASSERT_TRUE(across);
  EXPECT_NEAR(across->along, 2.0, 0.15);
  EXPECT_NEAR(across->across, 1.0, 0.15);
  EXPECT_LT(std::min(across->direction, 180.0 - across->direction), 3.0);
  EXPECT_NEAR(widthsOf(1.0, 2.0).value().direction, 90.0, 3.0);
}

TEST(EdgeSpread, IsNotToldWithoutDotsOrOfEdgesWiderThanItSees) {
  EXPECT_FALSE(EdgeSpread().widths());
  EXPECT_FALSE(widthsOf(9.0, 9.0));
}

}  // namespace
}  // namespace diagnose
