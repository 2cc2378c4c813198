#include "polar/results/Summary.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

PolarConfig everythingOn() {
  PolarConfig config;
  config.triangulate_residual_switch = config.triangulate_dis_switch = config.dy_bias_switch = 1;
  config.dy_bias_savepng_swithch = config.allpoints_calc_switch = config.foursixmethod_swithch = config.oqc_switch = 1;
  config.Cal_ID_DIS = {{1, 2}, {3, 4}};
  return config;
}

std::string headerOf(const PolarConfig& config, void (*write)(std::ostream&, const PolarConfig&)) {
  std::ostringstream stream;
  write(stream, config);
  return stream.str();
}

TEST(Summary, HeaderOfAllGroups) {
  EXPECT_EQ(headerOf(everythingOn(), writeSummaryHeader),
            "id ,tri_rms, tri_mean, tri_min, tri_max,tri_dis_1_2_err,tri_dis_1_3_err,tri_dis_2_4_err,tri_dis_3_4_err,"
            "tri_dis_1_4_err,tri_dis_2_3_err,tri_dis_err_min,tri_dis_err_max,dy_means, dy_min, dy_max,dy>bias_divid,"
            "allpoints_means,allpoints_min,allpoint_max,pol_dis_1_2_err,pol_dis_1_3_err,pol_dis_2_4_err,"
            "pol_dis_3_4_err,pol_dis_1_4_err,pol_dis_2_3_err,pol_dis_err_min,pol_dis_err_max,id_dis1,id_dis2,"
            "space_rms\n");
}

TEST(Summary, RectificationHeaderLacksTheBoardCheck) {
  PolarConfig config;
  EXPECT_EQ(headerOf(config, writeSummaryHeader), "id ,space_rms\n");
  EXPECT_EQ(headerOf(config, writeRectifiedHeader), "id \n");
}

TEST(Summary, FrameHeaderNamesThePairs) {
  PolarConfig config;
  config.frame_work = 1;
  config.Frame_ID_DIS = {{1, 2}, {3, 4}};
  EXPECT_EQ(headerOf(config, writeFrameHeader), "id ,1_2,3_4\n");
}

PolarConfig allOff() {
  PolarConfig config;
  config.spaceRms_switch = false;
  return config;
}

std::string rowOf(const PolarConfig& config, PairFigures& figures, std::size_t index) {
  std::ostringstream stream;
  WriteResultRow(config, figures, stream, index);
  return stream.str();
}

TEST(Summary, RowFirstCellIsOneTextWithoutABreak) {
  PairFigures figures;
  EXPECT_EQ(rowOf(allOff(), figures, 0), "Images_num_: 1_PolarVersion_: 1.3.3\n");
}

TEST(Summary, RowNumberIsThePositionInTheSet) {
  PairFigures figures;
  EXPECT_EQ(rowOf(allOff(), figures, 4).substr(0, 15), "Images_num_: 5_");
}

TEST(Summary, RowEverySwitchOpensItsGroupInOrder) {
  PolarConfig config;
  config.triangulate_residual_switch = config.triangulate_dis_switch = config.dy_bias_switch = 1;
  config.dy_bias_savepng_swithch = config.allpoints_calc_switch = config.foursixmethod_swithch = config.oqc_switch = 1;
  PairFigures figures;
  figures.tri_rms = 1;
  figures.tri_mean = 2;
  figures.tri_min = 3;
  figures.tri_max = 4;
  figures.tri_dis = {11, 12, 13, 14, 15, 16, 17, 18};
  figures.dy_means = 21;
  figures.dy_variance = 99;
  figures.dy_min = 22;
  figures.dy_max = 23;
  figures.dy_ratio = 24;
  figures.allpoints_means = 31;
  figures.allpoints_min = 32;
  figures.allpoint_max = 33;
  figures.pol_dis = {41, 42, 43, 44, 45, 46, 47, 48};
  figures.id_dis = {51.5, 52.25};
  figures.space_rms = 61;
  EXPECT_EQ(rowOf(config, figures, 0),
            "Images_num_: 1_PolarVersion_: 1.3.3,1,2,3,4,11,12,13,14,15,16,17,18,21,22,23,24,31,32,33,"
            "41,42,43,44,45,46,47,48,51.5,52.25,61\n");
}

TEST(Summary, RowNumbersHaveSixSignificantDigits) {
  PolarConfig config;
  PairFigures figures;
  figures.space_rms = 0.0567380123456;
  EXPECT_EQ(rowOf(config, figures, 0), "Images_num_: 1_PolarVersion_: 1.3.3,0.056738\n");
}

TEST(Summary, RowFrameRowHoldsItsValuesAloneAndClearsThem) {
  PolarConfig config;
  config.frame_work = 1;
  config.dy_bias_switch = 1;
  PairFigures figures;
  figures.frameValues = {0.5, -2.0, 3.0};
  EXPECT_EQ(rowOf(config, figures, 0), "Images_num_: 1_PolarVersion_: 1.3.3,0.5,-2,3\n");
  EXPECT_TRUE(figures.frameValues.empty());
  EXPECT_EQ(rowOf(config, figures, 1), "Images_num_: 2_PolarVersion_: 1.3.3\n");
}

TEST(Summary, RowFailedStreamSwallowsTheRow) {
  PairFigures figures;
  std::ostringstream stream;
  stream.setstate(std::ios::failbit);
  WriteResultRow(allOff(), figures, stream, 0);
  EXPECT_TRUE(stream.str().empty());
}

}  // namespace
