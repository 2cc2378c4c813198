#include "MorvenKit/src/ellipse/ConicParams.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

/// The conic of an ellipse in normalised coordinates, from its matrix in homogeneous ones.
ConicCoefficients conicOf(const drawing::Outline& e, const MeanStd& scale) {
  const double c = std::cos(e.angle), s = std::sin(e.angle);
  const double p = c * c / (e.a * e.a) + s * s / (e.b * e.b), r = s * s / (e.a * e.a) + c * c / (e.b * e.b);
  const double q = c * s * (1 / (e.a * e.a) - 1 / (e.b * e.b));
  const double dx = scale.mx - e.x, dy = scale.my - e.y, sx = scale.sx, sy = scale.sy;
  const double lead = p * sx * sx;
  return {2 * q * sx * sy / lead, r * sy * sy / lead, 2 * sx * (p * dx + q * dy) / lead,
          2 * sy * (q * dx + r * dy) / lead, (p * dx * dx + 2 * q * dx * dy + r * dy * dy - 1) / lead};
}

constexpr MeanStd kUnit{0, 0, 1, 1};

}  // namespace

TEST(ConicParams, AxisParallelByHand) {
  // x^2 + 25/9 y^2 - 25 = 0: semi-axes 5 and 3.
  Ellipse<double> e;
  getParamsFromConic({0, 25.0 / 9.0, 0, 0, -25}, kUnit, e);
  EXPECT_NEAR(e.x, 0.0, 1e-15);
  EXPECT_NEAR(e.y, 0.0, 1e-15);
  EXPECT_NEAR(e.semi_a, 5.0, 1e-13);
  EXPECT_NEAR(e.semi_b, 3.0, 1e-13);
  EXPECT_NEAR(e.angle, 0.0, 1e-7);
}

TEST(ConicParams, AnExactCircleHasOrientationZero) {
  Ellipse<double> e;
  getParamsFromConic({0, 1, 0, 0, -16}, kUnit, e);
  EXPECT_EQ(e.semi_a, 4.0);
  EXPECT_EQ(e.semi_b, 4.0);
  EXPECT_EQ(e.angle, 0.0);
}

TEST(ConicParams, AnUprightEllipseIsTurnedByAQuarter) {
  // x^2 / 4 + y^2 / 16 = 1: the tangent of the angle is 0.75 * 16 over exactly 0.
  Ellipse<double> e;
  getParamsFromConic({0, 0.25, 0, 0, -4}, kUnit, e);
  EXPECT_EQ(e.semi_a, 4.0);
  EXPECT_EQ(e.semi_b, 2.0);
  EXPECT_EQ(e.angle, CV_PI / 2);
}

class ConicParamsTurned : public testing::TestWithParam<double> {};

TEST_P(ConicParamsTurned, GeometryComesBack) {
  const drawing::Outline truth{120.25, 77.5, 12.0, 7.0, GetParam()};
  for (const MeanStd& scale : {kUnit, MeanStd{118.0F, 79.0F, 8.5F, 5.25F}}) {
    Ellipse<double> e;
    getParamsFromConic(conicOf(truth, scale), scale, e);
    EXPECT_NEAR(e.x, truth.x, 1e-8);
    EXPECT_NEAR(e.y, truth.y, 1e-8);
    EXPECT_NEAR(e.semi_a, 12.0, 1e-6);
    EXPECT_NEAR(e.semi_b, 7.0, 1e-6);
    EXPECT_NEAR(e.angle, truth.angle, 1e-6);
  }
}

INSTANTIATE_TEST_SUITE_P(Angles, ConicParamsTurned, testing::Values(-1.4, -0.8, -0.3, 0.2, 0.6, 1.1, 1.5));

TEST(ConicParams, VanishingLeadThrows) {
  // 1 / sx^2 is 2.2e-16 at sx = 6.7e7.
  Ellipse<double> e;
  const ConicCoefficients circle = {0, 1, 0, 0, -1};
  EXPECT_NO_THROW(getParamsFromConic(circle, {0, 0, 6.7e7F, 6.7e7F}, e));
  try {
    getParamsFromConic(circle, {0, 0, 6.8e7F, 6.8e7F}, e);
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "[Ellipse::getParamsFromConic] invalid conic params");
  }
}

TEST(ConicParams, ALeadOfExactlyTheEpsilonIsGoodEnough) {
  // 1 / (2^26)^2 is 2^-52, all of it without a rounding.
  Ellipse<double> e;
  getParamsFromConic({0, 1, 0, 0, -1}, {0, 0, 67108864.0F, 67108864.0F}, e);
  EXPECT_EQ(e.semi_a, 67108864.0);
  EXPECT_EQ(e.semi_b, 67108864.0);
}
