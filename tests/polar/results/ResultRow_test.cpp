#include "polar/results/ResultRow.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace {

PairEvaluator evaluatorWith(const PolarConfig& config) {
  return PairEvaluator(std::make_shared<const PolarConfig>(config));
}

PolarConfig allOff() {
  PolarConfig config;
  config.spaceRms_switch = false;
  return config;
}

std::string rowOf(PairEvaluator& evaluator, std::size_t index) {
  std::ostringstream stream;
  WriteResultRow(evaluator, stream, index);
  return stream.str();
}

TEST(ResultRow, FirstCellIsOneTextWithoutABreak) {
  PairEvaluator evaluator = evaluatorWith(allOff());
  EXPECT_EQ(rowOf(evaluator, 0), "Images_num_: 1_PolarVersion_: 1.3.3\n");
}

TEST(ResultRow, NumberIsThePositionInTheSet) {
  PairEvaluator evaluator = evaluatorWith(allOff());
  evaluator.image_id = 2;
  EXPECT_EQ(rowOf(evaluator, 4).substr(0, 15), "Images_num_: 5_");
}

TEST(ResultRow, EverySwitchOpensItsGroupInOrder) {
  PolarConfig config;
  config.triangulate_residual_switch = config.triangulate_dis_switch = config.dy_bias_switch = 1;
  config.dy_bias_savepng_swithch = config.allpoints_calc_switch = config.foursixmethod_swithch = config.oqc_switch = 1;
  PairEvaluator evaluator = evaluatorWith(config);
  evaluator.tri_rms = 1;
  evaluator.tri_mean = 2;
  evaluator.tri_min = 3;
  evaluator.tri_max = 4;
  evaluator.tri_dis = {11, 12, 13, 14, 15, 16, 17, 18};
  evaluator.dy_means = 21;
  evaluator.dy_variance = 99;
  evaluator.dy_min = 22;
  evaluator.dy_max = 23;
  evaluator.dy_ratio = 24;
  evaluator.allpoints_means = 31;
  evaluator.allpoints_min = 32;
  evaluator.allpoint_max = 33;
  evaluator.pol_dis = {41, 42, 43, 44, 45, 46, 47, 48};
  evaluator.id_dis = {51.5, 52.25};
  evaluator.space_rms = 61;
  EXPECT_EQ(rowOf(evaluator, 0),
            "Images_num_: 1_PolarVersion_: 1.3.3,1,2,3,4,11,12,13,14,15,16,17,18,21,22,23,24,31,32,33,"
            "41,42,43,44,45,46,47,48,51.5,52.25,61\n");
}

TEST(ResultRow, NumbersHaveSixSignificantDigits) {
  PolarConfig config;
  PairEvaluator evaluator = evaluatorWith(config);
  evaluator.space_rms = 0.0567380123456;
  EXPECT_EQ(rowOf(evaluator, 0), "Images_num_: 1_PolarVersion_: 1.3.3,0.056738\n");
}

TEST(ResultRow, FrameRowHoldsItsValuesAloneAndClearsThem) {
  PolarConfig config;
  config.frame_work = 1;
  config.dy_bias_switch = 1;
  PairEvaluator evaluator = evaluatorWith(config);
  evaluator.frameValues = {0.5, -2.0, 3.0};
  EXPECT_EQ(rowOf(evaluator, 0), "Images_num_: 1_PolarVersion_: 1.3.3,0.5,-2,3\n");
  EXPECT_TRUE(evaluator.frameValues.empty());
  EXPECT_EQ(rowOf(evaluator, 1), "Images_num_: 2_PolarVersion_: 1.3.3\n");
}

TEST(ResultRow, FailedStreamSwallowsTheRow) {
  PairEvaluator evaluator = evaluatorWith(allOff());
  std::ostringstream stream;
  stream.setstate(std::ios::failbit);
  WriteResultRow(evaluator, stream, 0);
  EXPECT_TRUE(stream.str().empty());
}

}  // namespace
