#include "tools/scene/Truth.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/scene/Presets.h"

namespace {

using scene::DotTruth;
using scene::makePreset;
using scene::pairTruth;

TEST(Truth, RectifiedPairHasEqualRows) {
  for (const DotTruth& dot : pairTruth(*makePreset("rectified_1280"), 0).dots) {
    EXPECT_EQ(dot.pixel_left.y, dot.pixel_right.y);
    EXPECT_NEAR(dot.ellipse_left.centre.y, dot.ellipse_right.centre.y, 1e-9);
    EXPECT_EQ(dot.row_difference, 0.0);
  }
}

TEST(Truth, RightCalibrationLeavesNoRowDifference) {
  for (const char* name : {"ring_320", "fisheye_1280", "poly_1920"}) {
    for (const DotTruth& dot : pairTruth(*makePreset(name), 0).dots)
      EXPECT_NEAR(dot.row_difference, 0.0, 1e-10) << name;
  }
}

TEST(Truth, MisalignmentShowsInTheRows) {
  // A wrong turn by a about x moves all rows by about a f; half of it each way does the same.
  const scene::Scene scene = *makePreset("misaligned_1280");
  const scene::PairTruth truth = pairTruth(scene, 0);
  const double turn = scene.given.right_from_left_angles.rx - scene.rig.right_from_left_angles.rx;
  double sum = 0.0;
  for (const DotTruth& dot : truth.dots) sum += dot.row_difference;
  EXPECT_NEAR(turn, 0.05 * 3.14159265358979 / 180.0, 1e-9);
  EXPECT_NEAR(sum / static_cast<double>(truth.dots.size()), -turn * truth.rectified_focal, 0.12);
}

TEST(Truth, DisparityOfTheRectifiedPairGivesTheDepth) {
  const scene::Scene scene = *makePreset("rectified_1280");
  for (const DotTruth& dot : pairTruth(scene, 1).dots) {
    const double disparity = dot.pixel_left.x - dot.pixel_right.x;
    EXPECT_NEAR(scene.rig.left.fx * 60.0 / disparity, dot.point_left.z, 1e-8);
  }
}

TEST(Truth, WholeBoardOfEveryPresetIsInView) {
  for (const std::string& name : scene::presetNames()) {
    const scene::Scene scene = *makePreset(name);
    for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) {
      for (const DotTruth& dot : pairTruth(scene, index).dots) ASSERT_TRUE(dot.in_view) << name << ' ' << dot.id;
    }
  }
}

TEST(Truth, ADotThatLeavesAnImageIsNotInView) {
  scene::Scene scene = *makePreset("ring_320");
  scene.left_from_board[0].translation.x -= 100.0;
  const auto dots = pairTruth(scene, 0).dots;
  EXPECT_FALSE(dots.front().in_view);
  EXPECT_TRUE(dots.back().in_view);
}

}  // namespace
