#include "tools/scene/RigFields.h"

#include <gtest/gtest.h>

#include <array>
#include <numbers>

#include "tools/scene/SceneFile.h"

namespace {

using scene::SceneRecipe;

SceneRecipe parsed(const std::string& text) { return scene::parsedScene(text, "scene.json", {}); }

TEST(RigFields, AnotherSizeKeepsTheFieldOfView) {
  const SceneRecipe recipe = parsed(R"({"preset": "rectified_1280", "rig": {"width": 640, "height": 256}})");
  // 1280 x 1024: fx = 0.9 x 1280 = 1152, cx = 0.496 x 1280 = 634.88, cy = 512 + 0.002 x 1280 = 514.56
  EXPECT_FLOAT_EQ(static_cast<float>(recipe.rig.right.fx), 576.0F);
  EXPECT_FLOAT_EQ(static_cast<float>(recipe.rig.right.cx), 317.44F);
  EXPECT_FLOAT_EQ(static_cast<float>(recipe.rig.right.cy), 128.64F);
}

TEST(RigFields, FocalLengthAndBaselineStandForSeveralNumbers) {
  const SceneRecipe recipe = parsed(R"({"preset": "rectified_1280", "rig": {"focal": 576, "baseline": 80.5}})");
  EXPECT_EQ(recipe.rig.left.fy, 576.0);
  EXPECT_EQ(recipe.rig.right.fx, 576.0);
  EXPECT_EQ(recipe.rig.right_from_left_translation.x, -80.5);
}

TEST(RigFields, AnglesAreDegreesAndTheCalibrationIsSinglePrecision) {
  const SceneRecipe recipe = parsed(R"({"rig": {"rotation": [0, 0, 30], "left": {"k1": 0.1}}})");
  EXPECT_EQ(recipe.rig.right_from_left_angles.rz, static_cast<double>(static_cast<float>(std::numbers::pi / 6.0)));
  EXPECT_EQ(recipe.rig.left.lens[0], static_cast<double>(0.1F));
}

TEST(RigFields, AnotherLensModelBeginsWithoutCoefficients) {
  const SceneRecipe fisheye = parsed(R"({"rig": {"model": "fisheye", "right": {"k2": 0.5}}})");
  EXPECT_EQ(fisheye.rig.left.lens, (std::array<double, 8>{}));
  EXPECT_EQ(fisheye.rig.right.lens[1], 0.5);
  EXPECT_EQ(scene::sceneOf(fisheye).settings.type, 2);
  EXPECT_EQ(scene::sceneOf(parsed(R"({"rig": {"model": "poly"}})")).rig.left.table.x.size(), 4U * 4U * 10U);
}

}  // namespace
