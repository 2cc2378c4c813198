#include "tools/scene/Presets.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/scene/Truth.h"

namespace {

using scene::makePreset;

TEST(Presets, UnknownNameGivesNothing) { EXPECT_FALSE(makePreset("no_such_preset")); }

TEST(Presets, EveryNameGivesItsScene) {
  const auto names = scene::presetNames();
  EXPECT_GE(names.size(), 21U);
  for (const std::string& name : names) {
    const auto made = makePreset(name);
    ASSERT_TRUE(made) << name;
    EXPECT_EQ(made->name, name);
    EXPECT_FALSE(made->left_from_board.empty()) << name;
    EXPECT_EQ(made->board.rows % 2, 1) << name;
    EXPECT_EQ(made->board.cols % 2, 1) << name;
  }
}

TEST(Presets, OptionsReplaceThePresetsOwn) {
  const scene::Scene made = *makePreset("big_640", {.pairs = 5, .seed = 77, .read_noise = 0.0});
  EXPECT_EQ(made.left_from_board.size(), 5U);
  EXPECT_EQ(made.seed, 77U);
  EXPECT_EQ(made.optics.read_noise, 0.0);
  EXPECT_EQ(made.optics.shot_noise, 0.0);
}

TEST(Presets, NumbersAreSinglePrecision) {
  for (const std::string& name : scene::presetNames()) {
    const scene::StereoRig rig = makePreset(name)->given;
    const auto& a = rig.right_from_left_angles;
    const auto& t = rig.right_from_left_translation;
    for (const double value : {rig.left.fx, rig.right.fy, rig.left.cx, rig.right.cy, rig.left.lens[0],
                               rig.right.lens[7], a.rx, a.ry, a.rz, t.x, t.y, t.z}) {
      EXPECT_EQ(value, static_cast<double>(static_cast<float>(value))) << name;
    }
  }
}

/// Smallest half axis of an ordinary dot, over both images.
double smallestDot(const scene::Scene& scene) {
  double smallest = 1e9;
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) {
    for (const scene::DotTruth& dot : scene::pairTruth(scene, index).dots) {
      smallest = std::min({smallest, dot.ellipse_left.semi_b, dot.ellipse_right.semi_b});
    }
  }
  return smallest;
}

struct SmallestDot {
  const char* preset;
  double pixels;
};

class PresetsDotsAreLargeEnough : public testing::TestWithParam<SmallestDot> {};

TEST_P(PresetsDotsAreLargeEnough, ForTheImageSize) {
  EXPECT_GT(smallestDot(*makePreset(GetParam().preset)), GetParam().pixels);
}

// Half axes below which a detection of outlines on images of that width gets into trouble.
INSTANTIATE_TEST_SUITE_P(Widths, PresetsDotsAreLargeEnough,
                         testing::Values(SmallestDot{"ring_320", 1.6}, SmallestDot{"ring_640", 2.6},
                                         SmallestDot{"big_1280", 5.7}, SmallestDot{"big_1280_bright", 11.0},
                                         SmallestDot{"fisheye_1280", 5.7}, SmallestDot{"poly_1920", 5.7},
                                         SmallestDot{"ring_small", 7.65}, SmallestDot{"ring_default_board", 12.8}));

TEST(Presets, MisalignedGivesAnotherCalibrationThanItRendersWith) {
  const scene::Scene made = *makePreset("misaligned_1280");
  EXPECT_NE(made.given.right_from_left_angles.rx, made.rig.right_from_left_angles.rx);
  EXPECT_EQ(made.given.right_from_left_angles.ry, made.rig.right_from_left_angles.ry);
  EXPECT_EQ(made.given.left.fx, made.rig.left.fx);
}

}  // namespace
