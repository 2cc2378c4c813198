#include "tools/scene/IdealRectification.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/scene/PresetRigs.h"

namespace {

using scene::Point3;

TEST(IdealRectification, RowsAgreeAfterIt) {
  const scene::StereoRig rig = scene::brownRig({640, 512, 60});
  const scene::IdealRectification turn = scene::idealRectification(rig);
  for (const Point3 point : {Point3{0, 0, 500}, Point3{100, -80, 700}, Point3{-150, 120, 400}}) {
    const Point3 left = turn.left * point;
    const Point3 right = turn.right * scene::rightFromLeft(rig, point);
    EXPECT_NEAR(left.y / left.z, right.y / right.z, 1e-14);
    EXPECT_NEAR(left.z, right.z, 1e-11);
  }
}

TEST(IdealRectification, BaselineKeepsItsLengthAndLiesAlongX) {
  const scene::StereoRig rig = scene::brownRig({640, 512, 60});
  const Point3 moved = scene::idealRectification(rig).right * rig.right_from_left_translation;
  EXPECT_NEAR(moved.x, -scene::norm(rig.right_from_left_translation), 1e-12);
  EXPECT_NEAR(moved.y, 0.0, 1e-12);
  EXPECT_NEAR(moved.z, 0.0, 1e-12);
}

TEST(IdealRectification, ParallelCamerasStay) {
  const scene::IdealRectification turn = scene::idealRectification(scene::rectifiedRig({640, 512, 60}));
  EXPECT_EQ(turn.left.values, scene::Matrix3{}.values);
  EXPECT_EQ(turn.right.values, scene::Matrix3{}.values);
}

TEST(IdealRectification, EachCameraTurnsHalf) {
  scene::StereoRig rig = scene::rectifiedRig({640, 512, 60});
  rig.right_from_left_angles.rx = 0.2;  // about the baseline: nothing else has to turn
  const scene::IdealRectification turn = scene::idealRectification(rig);
  EXPECT_NEAR(turn.left.at(2, 1), std::sin(0.1), 1e-14);
  EXPECT_NEAR(turn.right.at(2, 1), -std::sin(0.1), 1e-14);
}

TEST(IdealRectification, BrownPairAtScaleOneHasTheMeanFocalLength) {
  scene::StereoRig rig = scene::rectifiedRig({800, 600, 60});
  rig.left.fy = 1000.0;
  rig.right.fy = 1010.0;
  EXPECT_DOUBLE_EQ(scene::rectifiedFocal(rig, 1.0), 1005.0);
}

TEST(IdealRectification, ScaledPairHasTheSmallerOfTheLargerFocalLengths) {
  scene::StereoRig rig = scene::rectifiedRig({800, 600, 60});
  rig.left.fx = rig.left.fy = 1000.0;
  rig.right.fx = 1010.0;
  rig.right.fy = 1010.0;
  EXPECT_DOUBLE_EQ(scene::rectifiedFocal(rig, 2.0), 2000.0);
  rig.left.fx = 1250.0;  // the larger one, 1250, becomes 1250 * 1000 / 1250 along the rows' axis
  EXPECT_DOUBLE_EQ(scene::rectifiedFocal(rig, 0.5), 500.0);
}

}  // namespace
