#include "refine/outline/Outline.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

using refine::EdgePlace;
using refine::Outline;

TEST(OutlinePlace, OfACircleIsTheDistanceFromIt) {
  const Outline circle{{10.0, 20.0}, 9.0, 0.0, 9.0};
  const EdgePlace place = refine::edgePlace(circle, 14.0, 17.0);  // 5 from the middle
  EXPECT_NEAR(place.outside(), 2.0, 1e-12);
  EXPECT_NEAR(place.nx, 0.8, 1e-12);
  EXPECT_NEAR(place.ny, -0.6, 1e-12);
  EXPECT_NEAR(refine::edgePlace(circle, 10.0, 21.0).outside(), -2.0, 1e-12);
}

TEST(OutlinePlace, IsNothingOnTheEllipseItself) {
  const double a = 7.0, b = 4.0, turn = 0.6;
  const double c = std::cos(turn), s = std::sin(turn);
  const Outline ellipse{
      {1.0, 2.0}, a * a * c * c + b * b * s * s, (a * a - b * b) * c * s, a * a * s * s + b * b * c * c};
  for (double t = 0.0; t < 6.2; t += 0.4) {
    const double u = a * std::cos(t), v = b * std::sin(t);
    EXPECT_NEAR(refine::edgePlace(ellipse, 1.0 + c * u - s * v, 2.0 + s * u + c * v).outside(), 0.0, 1e-12) << t;
  }
  EXPECT_NEAR(ellipse.radius(), std::sqrt(28.0), 1e-12);
}

TEST(OutlinePlace, HasANormalAlsoInTheCentre) {
  const Outline circle{{3.0, 4.0}, 25.0, 0.0, 25.0};
  EXPECT_NEAR(refine::edgePlace(circle, 3.0, 4.0).outside(), -5.0, 1e-12);
}

TEST(OutlineShape, OfABoardCircleIsTheSlopeTimesItsTranspose) {
  // x stretched by 2, y by 3: half axes 1 and 1.5 of a circle of 0.5.
  const Outline outline = refine::outlineOfCircle({0.0, 0.0}, cv::Matx22d(2.0, 0.0, 0.0, 3.0), 0.5);
  EXPECT_NEAR(outline.halfBox().x, 1.0, 1e-12);
  EXPECT_NEAR(outline.halfBox().y, 1.5, 1e-12);
  EXPECT_TRUE(outline.isEllipse());
}

TEST(OutlineShape, OfAHyperbolaIsNoEllipse) { EXPECT_FALSE((Outline{{0, 0}, 1.0, 2.0, 1.0}).isEllipse()); }

}  // namespace
