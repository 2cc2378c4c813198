#include "calibrations/geometry/Angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using calibrations::Angles;
using calibrations::anglesOf;
using calibrations::rotationOf;

constexpr double kQuarter = 1.5707963267948966;

TEST(Angles, TurnAboutYFirstThenXThenZ) {
  // A quarter turn each: e_x -> (y) -e_z -> (x) e_y -> (z) -e_x; e_y -> e_y -> e_z -> e_z; e_z -> e_x -> e_x -> e_y.
  const cv::Matx33d rotation = rotationOf({kQuarter, kQuarter, kQuarter});
  EXPECT_LT(cv::norm(rotation * cv::Vec3d(1, 0, 0) - cv::Vec3d(-1, 0, 0)), 1e-15);
  EXPECT_LT(cv::norm(rotation * cv::Vec3d(0, 1, 0) - cv::Vec3d(0, 0, 1)), 1e-15);
  EXPECT_LT(cv::norm(rotation * cv::Vec3d(0, 0, 1) - cv::Vec3d(0, 1, 0)), 1e-15);
}

class AnglesBackAndForth : public testing::TestWithParam<Angles> {};

TEST_P(AnglesBackAndForth, AreTheSame) {
  const Angles found = anglesOf(rotationOf(GetParam()));
  EXPECT_NEAR(found.rx, GetParam().rx, 1e-15);
  EXPECT_NEAR(found.ry, GetParam().ry, 1e-15);
  EXPECT_NEAR(found.rz, GetParam().rz, 1e-15);
}

INSTANTIATE_TEST_SUITE_P(All, AnglesBackAndForth,
                         testing::Values(Angles{0, 0, 0}, Angles{0.01, -0.03, 0.02}, Angles{-0.4, 1.2, -2.9},
                                         Angles{0.3, 3.0, 2.5}, Angles{1.5, -0.7, 0.1}, Angles{kQuarter, 0, 0.6},
                                         Angles{-kQuarter, 0, -1.1}));

class AnglesAtThePole : public testing::TestWithParam<Angles> {};

TEST_P(AnglesAtThePole, GiveTheSameRotationWithoutRy) {
  const cv::Matx33d rotation = rotationOf(GetParam());
  const Angles found = anglesOf(rotation);
  EXPECT_EQ(found.ry, 0.0);
  // Rz(c) Rx(q) Ry(b) = Rz(c + b) Rx(q), and with -q the difference.
  EXPECT_NEAR(found.rz, GetParam().rz + std::copysign(GetParam().ry, GetParam().rx), 1e-15);
  EXPECT_LT(cv::norm(rotationOf(found) - rotation), 1e-15);
}

INSTANTIATE_TEST_SUITE_P(All, AnglesAtThePole,
                         testing::Values(Angles{kQuarter, 0.7, 0.4}, Angles{-kQuarter, 0.7, 0.4}));

TEST(AnglesNearThePole, AreStillTold) {
  const Angles found = anglesOf(rotationOf({kQuarter - 1e-5, 0.3, 0.2}));
  EXPECT_NEAR(found.ry, 0.3, 1e-10);
  EXPECT_NEAR(found.rz, 0.2, 1e-10);
}

TEST(AnglesOfNothing, AreNoNegativeNoughts) {
  const Angles found = anglesOf(cv::Matx33d::eye());
  EXPECT_FALSE(std::signbit(found.rx));
  EXPECT_FALSE(std::signbit(found.ry));
  EXPECT_FALSE(std::signbit(found.rz));
}

}  // namespace
