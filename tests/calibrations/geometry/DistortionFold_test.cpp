#include "calibrations/geometry/DistortionFold.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using calibrations::Fold;
using calibrations::foldInside;
using polarline::Camera;

/// Corners at the normalised radius 0.5: 300 and 400 pixels off, by a focal length of 1000.
Camera camera(double k1) {
  Camera made;
  made.size = {801, 601};
  made.fx = made.fy = 1000.125;  // Half a pixel more on each side: hypot(400.5, 300.5) / 1001.4
  made.cx = 400;
  made.cy = 300;
  made.k[0] = k1;
  return made;
}

TEST(DistortionFold, IsWhereTheBarrelTurnsBack) {
  // r (1 + k r^2) is largest at r = sqrt(-1 / 3k), there 2/3 r. With k = -1: 0.57735, 0.3849.
  const std::optional<Fold> fold = foldInside(camera(-1.0), false);
  ASSERT_TRUE(fold);
  EXPECT_NEAR(fold->ideal, 0.57735, 1e-3);
  EXPECT_NEAR(fold->imaged, 0.38490, 1e-6);
  EXPECT_NEAR(fold->corner, std::hypot(400.5, 300.5) / 1000.125, 1e-12);
}

TEST(DistortionFold, DoesNotMatterOutsideTheImage) {
  // The largest radius 2/3 sqrt(-1 / 3k) reaches 0.5006 at k = -0.591.
  EXPECT_FALSE(foldInside(camera(-0.58), false));
  EXPECT_TRUE(foldInside(camera(-0.60), false));
  EXPECT_FALSE(foldInside(camera(0.5), false));
  EXPECT_FALSE(foldInside(camera(0.0), false));
}

TEST(DistortionFold, IsFoundBehindADenominator) {
  Camera rational = camera(0.0);
  rational.k[3] = 4.0;  // r / (1 + 4 r^2) is largest at 1/2, there 1/4.
  const std::optional<Fold> fold = foldInside(rational, false);
  ASSERT_TRUE(fold);
  EXPECT_NEAR(fold->ideal, 0.5, 1e-3);
  EXPECT_NEAR(fold->imaged, 0.25, 1e-6);
}

TEST(DistortionFold, IsOfTheAngleWithAFisheye) {
  // t (1 + k t^2) as above, of the angle.
  const std::optional<Fold> fold = foldInside(camera(-1.0), true);
  ASSERT_TRUE(fold);
  EXPECT_NEAR(fold->ideal, 0.57735, 1e-3);
  EXPECT_FALSE(foldInside(camera(-0.58), true));
}

TEST(DistortionFold, IsFoundAtTheFarthestCorner) {
  Camera aside = camera(-0.58);
  aside.cx = 300;  // 500.5 pixels to the right edge.
  EXPECT_TRUE(foldInside(aside, false));
}

TEST(DistortionFold, NeedsTheSize) {
  Camera unknown = camera(-1.0);
  unknown.size = {};
  EXPECT_FALSE(foldInside(unknown, false));
}

}  // namespace
