#include "tools/scene/PoseFit.h"

#include <gtest/gtest.h>

#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"

namespace {

TEST(PoseFit, FrontalBoardFillsWhatIsWished) {
  // 100 x 100 pinholes of focal 100, no baseline: the paper's half width, 36 steps / 2 + 2 = 20 steps, is to reach 0.8
  // of half the image.
  scene::StereoRig rig;
  rig.left.width = rig.left.height = 100;
  rig.left.fx = rig.left.fy = 100.0;
  rig.left.cx = rig.left.cy = 49.5;
  rig.right = rig.left;
  const scene::Pose pose = scene::fitPose(rig, scene::Board{}, {0, 0, 0, 0.8});
  EXPECT_NEAR(pose.translation.z, 100.0 * 400.0 / 40.0, 1e-6);
  EXPECT_NEAR(pose.translation.x, -18.0 * 20.0, 1e-6);
  EXPECT_NEAR(pose.translation.y, -17.0 * 20.0, 1e-6);
}

TEST(PoseFit, BothImagesSeeThePaper) {
  const scene::StereoRig rig = scene::fisheyeRig({1280, 800, 50});
  scene::Board board;
  const scene::Pose pose = scene::fitPose(rig, board, {15, -20, 10, 0.9});
  for (const double x : {-40.0, 760.0}) {
    for (const double y : {-40.0, 720.0}) {
      const scene::Point3 left = scene::transformed(pose, {x, y, 0});
      for (const auto& [camera, point] :
           {std::pair{&rig.left, left}, std::pair{&rig.right, scene::rightFromLeft(rig, left)}}) {
        const auto pixel = scene::project(*camera, point);
        ASSERT_TRUE(pixel);
        EXPECT_GT(pixel->x, 0.04 * 1280);
        EXPECT_LT(pixel->x, 0.96 * 1280);
        EXPECT_GT(pixel->y, 0.04 * 800);
        EXPECT_LT(pixel->y, 0.96 * 800);
      }
    }
  }
}

}  // namespace
