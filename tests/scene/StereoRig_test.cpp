#include "tools/scene/StereoRig.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

using scene::Angles;
using scene::Point3;
using scene::rotationFromAngles;

constexpr double kQuarter = std::numbers::pi / 2.0;

struct Turn {
  Angles angles;
  Point3 of_x, of_y, of_z;  ///< Where the three axes go.
};

class StereoRigQuarterTurn : public testing::TestWithParam<Turn> {};

void expectNear(const Point3& a, const Point3& b) {
  EXPECT_NEAR(a.x, b.x, 1e-15);
  EXPECT_NEAR(a.y, b.y, 1e-15);
  EXPECT_NEAR(a.z, b.z, 1e-15);
}

TEST_P(StereoRigQuarterTurn, MovesTheAxes) {
  const scene::Matrix3 r = rotationFromAngles(GetParam().angles);
  expectNear(r * Point3{1, 0, 0}, GetParam().of_x);
  expectNear(r * Point3{0, 1, 0}, GetParam().of_y);
  expectNear(r * Point3{0, 0, 1}, GetParam().of_z);
}

// The last two tell the order: y first, then x, then z.
INSTANTIATE_TEST_SUITE_P(Axes, StereoRigQuarterTurn,
                         testing::Values(Turn{{kQuarter, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}},
                                         Turn{{0, kQuarter, 0}, {0, 0, -1}, {0, 1, 0}, {1, 0, 0}},
                                         Turn{{0, 0, kQuarter}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
                                         Turn{{kQuarter, kQuarter, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}},
                                         Turn{{kQuarter, 0, kQuarter}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}}));

TEST(StereoRig, RightIsTurnedThenMoved) {
  scene::StereoRig rig;
  rig.right_from_left_angles = {0, 0, kQuarter};
  rig.right_from_left_translation = {-60, 1, 2};
  expectNear(scene::rightFromLeft(rig, {10, 0, 100}), {-60, 11, 102});
}

TEST(StereoRig, AnglesOfARotationAreThoseThatMadeIt) {
  const scene::Angles made{0.3, -1.2, 2.5};
  const scene::Angles found = scene::anglesFromRotation(scene::rotationFromAngles(made));
  EXPECT_NEAR(found.rx, made.rx, 1e-15);
  EXPECT_NEAR(found.ry, made.ry, 1e-15);
  EXPECT_NEAR(found.rz, made.rz, 1e-15);
}

}  // namespace
