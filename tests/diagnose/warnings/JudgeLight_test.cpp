#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

using ::testing::HasSubstr;

/// Light that is a fault.
struct Light {
  const char* code;
  void (*change)(scene::Optics& optics);
  const char* words;
};

class JudgeLightOfLight : public ::testing::TestWithParam<Light> {};

TEST_P(JudgeLightOfLight, TellsTheFault) {
  WatchedScene scene;
  GetParam().change(scene.scene.optics);
  expectOnly(scene, GetParam().code, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(All, JudgeLightOfLight,
                         ::testing::Values(Light{"saturated", [](scene::Optics& optics) { optics.paper = 290.0; },
                                                 "largest value, 255"},
                                           Light{"too_dark",
                                                 [](scene::Optics& optics) {
                                                   optics.paper = 30.0;
                                                   optics.ink = 4.0;
                                                   optics.surround = 15.0;
                                                   optics.read_noise = 0.3;
                                                 },
                                                 "of 255, in both pictures of pair 0"},
                                           Light{"low_contrast",
                                                 [](scene::Optics& optics) {
                                                   optics.paper = 110.0;
                                                   optics.ink = 90.0;
                                                   optics.read_noise = 0.5;
                                                 },
                                                 "of 255"},
                                           Light{"low_contrast",
                                                 [](scene::Optics& optics) {
                                                   optics.paper = 130.0;
                                                   optics.read_noise = 20.0;
                                                 },
                                                 "with noise of"},
                                           Light{"blurred", [](scene::Optics& optics) { optics.blur_sigma = 3.2; },
                                                 "deviation of the edges"}),
                         [](const auto& each) { return std::string(each.param.code) + std::to_string(each.index); });

TEST(JudgeLightOfMotion, TellsItsDirection) {
  WatchedScene scene;
  // Seven pixels along a diagonal, from the upper left to the lower right, in one picture only.
  scene.spoilPicture = [](cv::Mat& picture, std::size_t side) {
    if (side == 1)
      cv::filter2D(picture, picture, -1, cv::Mat::eye(5, 5, CV_32F) / 5.0, {-1, -1}, 0.0, cv::BORDER_REFLECT);
  };
  const polarline::Warning one = onlyOne(scene);
  EXPECT_EQ(one.code, "motion_blur");
  EXPECT_THAT(one.text, HasSubstr("in the right picture of pair 0"));
  EXPECT_NEAR(scene.quality.at(0).right.blur_direction, 45.0, 3.0);
}

TEST(JudgeLightOfMotion, IsAlongTheRowsFromEitherSide) {
  PairLook pair;
  pair.sides[0].quality.dot = 30.0;
  pair.sides[0].quality.ground = 200.0;
  pair.sides[0].quality.full_scale = 255.0;
  pair.sides[0].quality.contrast = 0.67;
  pair.sides[0].quality.noise = 1.0;
  pair.sides[0].quality.edge_width_along = 2.0;
  pair.sides[0].quality.edge_width_across = 0.6;
  for (const double direction : {0.3, 179.7}) {
    pair.sides[0].quality.blur_direction = direction;
    const Warnings warnings = judgeLight({pair});
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_THAT(warnings[0].text, HasSubstr("in the direction of 0 degrees from the rows"));
  }
}

}  // namespace
}  // namespace diagnose
