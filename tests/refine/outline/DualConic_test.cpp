#include "refine/outline/DualConic.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Lines x cos t + y sin t = n'c + sqrt(a^2 cos^2 t + b^2 sin^2 t) touch the upright ellipse of half axes a and b.
TEST(DualConicOfTangents, IsTheEllipseThatTheyTouch) {
  const double a = 6.0, b = 3.5, cx = 101.0, cy = 57.0;
  refine::DualConicFit fit({100.0, 55.0});
  for (double t = 0.1; t < 6.3; t += 0.7) {
    const double nx = std::cos(t), ny = std::sin(t);
    const double reach = std::sqrt(a * a * nx * nx + b * b * ny * ny);
    // A point of the line anywhere along it.
    fit.addLine(cx + reach * nx - 2.0 * ny, cy + reach * ny + 2.0 * nx, nx, ny, 1.0 + t);
  }
  const auto outline = fit.outline();
  ASSERT_TRUE(outline);
  EXPECT_NEAR(outline->centre.x, cx, 1e-9);
  EXPECT_NEAR(outline->centre.y, cy, 1e-9);
  EXPECT_NEAR(outline->xx, a * a, 1e-8);
  EXPECT_NEAR(outline->xy, 0.0, 1e-8);
  EXPECT_NEAR(outline->yy, b * b, 1e-8);
}

TEST(DualConicOfTangents, TakesTheHeavierOnes) {
  refine::DualConicFit fit({0.0, 0.0});
  for (double t = 0.0; t < 6.2; t += 0.5) {
    fit.addLine(4.0 * std::cos(t), 4.0 * std::sin(t), std::cos(t), std::sin(t), 1e6);
    fit.addLine(9.0 * std::cos(t), 9.0 * std::sin(t), std::cos(t), std::sin(t), 1.0);
  }
  ASSERT_TRUE(fit.outline());
  EXPECT_NEAR(fit.outline()->radius(), 4.0, 1e-3);
}

TEST(DualConicOfTangents, NeedsFiveDirections) {
  refine::DualConicFit fit({0.0, 0.0});
  EXPECT_FALSE(fit.outline());
  for (int k = 0; k < 20; ++k) fit.addLine(k % 4, 0.0, k % 2, 1 - k % 2, 1.0);
  EXPECT_FALSE(fit.outline());
}

}  // namespace
