#include "check/init/PolarSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

polarline::BoardDescription board() { return polarline::parseBoard("dots:9x7:20:inner=5x5"); }
const init::CornerIds kCorners = {20, 24, 38, 42};

TEST(PolarSettings, EveryEvaluationOfAnImageSetIsOn) {
  const PolarConfig config = init::polarSettings(board(), kCorners, {1, false, false});
  EXPECT_EQ(config.type, 1);
  EXPECT_EQ(config.x_y, 0);
  EXPECT_EQ(config.f_scale, 1.0F);
  EXPECT_EQ(config.triangulate_residual_switch, 1);
  EXPECT_EQ(config.triangulate_dis_switch, 1);
  EXPECT_TRUE(config.discalswitch);
  EXPECT_EQ(config.dy_bias_switch, 1);
  EXPECT_EQ(config.foursixmethod_swithch, 1);
  EXPECT_EQ(config.allpoints_calc_switch, 1);
  EXPECT_TRUE(config.spaceRms_switch);
  EXPECT_EQ(config.pattern_rows, 7);
  EXPECT_EQ(config.pattern_cols, 9);
  EXPECT_EQ(config.pattern_step, 20.0F);
}

TEST(PolarSettings, WhatWouldEndOrMisleadARunIsOff) {
  const PolarConfig config = init::polarSettings(board(), kCorners, {1, false, false});
  EXPECT_FALSE(config.discalsave) << "ends the run at a pair that would be given up";
  EXPECT_EQ(config.oqc_switch, 0) << "headings without values";
  EXPECT_EQ(config.frame_work, 0);
  EXPECT_EQ(config.crop, 0);
  EXPECT_FALSE(config.eccentricity);
}

TEST(PolarSettings, PointsHaveTheirTruePlaces) {
  const PolarConfig config = init::polarSettings(board(), kCorners, {});
  EXPECT_EQ(config.TriPoint1_ID, 20);
  EXPECT_EQ(config.PolPoint4_ID, 42);
  EXPECT_THAT(config.TriPoint1_GT, ElementsAre(40, 40, 0));
  EXPECT_THAT(config.TriPoint2_GT, ElementsAre(120, 40, 0));
  EXPECT_THAT(config.PolPoint3_GT, ElementsAre(40, 80, 0));
  EXPECT_THAT(config.PolPoint4_GT, ElementsAre(120, 80, 0));
}

TEST(PolarSettings, PairsOfDotsAreTheRowsColumnsAndDiagonals) {
  EXPECT_THAT(init::polarSettings(board(), kCorners, {}).Cal_ID_DIS,
              ElementsAre(ElementsAre(20, 24), ElementsAre(38, 42), ElementsAre(20, 38), ElementsAre(24, 42),
                          ElementsAre(20, 42), ElementsAre(24, 38)));
}

TEST(PolarSettings, PicturesOfSeveralChannelsHaveNoResiduals) {
  EXPECT_EQ(init::polarSettings(board(), kCorners, {1, true, false}).triangulate_residual_switch, 0);
}

TEST(PolarSettings, CamerasAboveEachOtherAreTurnedAndHaveNoCloud) {
  const PolarConfig config = init::polarSettings(board(), kCorners, {1, false, true});
  EXPECT_EQ(config.x_y, 1);
  EXPECT_EQ(config.foursixmethod_swithch, 0);
  EXPECT_EQ(config.allpoints_calc_switch, 0);
  EXPECT_EQ(config.allpointssavecsv_swithch, 0);
  EXPECT_EQ(config.dy_bias_switch, 1);
}

TEST(PolarSettings, TwoStepsHaveNoSpacing) {
  const auto unequal = polarline::parseBoard("dots:9x7:20:inner=5x5:step_y=21");
  EXPECT_EQ(init::polarSettings(unequal, kCorners, {}).allpoints_calc_switch, 0);
}

TEST(PolarSettings, DotsThatBigRingsCoverHaveNoDistances) {
  EXPECT_FALSE(
      init::polarSettings(polarline::parseBoard("rings-big:37x35:17.5"), {76, 108, 1186, 1218}, {}).discalswitch);
}

}  // namespace
