#include "polar/results/SummaryFile.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/TempFolder.h"

namespace {

PolarConfig everythingOn() {
  PolarConfig config;
  config.triangulate_residual_switch = config.triangulate_dis_switch = config.dy_bias_switch = 1;
  config.dy_bias_savepng_swithch = config.allpoints_calc_switch = config.foursixmethod_swithch = config.oqc_switch = 1;
  config.Cal_ID_DIS = {{1, 2}, {3, 4}};
  return config;
}

std::string header(const PolarConfig& config, bool with_space_rms) {
  std::ostringstream stream;
  writeSummaryHeader(stream, config, with_space_rms);
  return stream.str();
}

TEST(SummaryFile, HeaderOfAllGroups) {
  EXPECT_EQ(header(everythingOn(), true),
            "id ,tri_rms, tri_mean, tri_min, tri_max,tri_dis_1_2_err,tri_dis_1_3_err,tri_dis_2_4_err,tri_dis_3_4_err,"
            "tri_dis_1_4_err,tri_dis_2_3_err,tri_dis_err_min,tri_dis_err_max,dy_means, dy_min, dy_max,dy>bias_divid,"
            "allpoints_means,allpoints_min,allpoint_max,pol_dis_1_2_err,pol_dis_1_3_err,pol_dis_2_4_err,"
            "pol_dis_3_4_err,pol_dis_1_4_err,pol_dis_2_3_err,pol_dis_err_min,pol_dis_err_max,id_dis1,id_dis2,"
            "space_rms\n");
}

TEST(SummaryFile, RectificationHeaderLacksTheBoardCheck) {
  PolarConfig config;
  EXPECT_EQ(header(config, true), "id ,space_rms\n");
  EXPECT_EQ(header(config, false), "id \n");
}

TEST(SummaryFile, FrameHeaderNamesThePairs) {
  PolarConfig config;
  config.frame_work = 1;
  config.Frame_ID_DIS = {{1, 2}, {3, 4}};
  std::ostringstream stream;
  writeFrameHeader(stream, config);
  EXPECT_EQ(stream.str(), "id ,1_2,3_4\n");
}

TEST(SummaryFile, OldFilesAreNeverOverwritten) {
  const TempFolder folder;
  folder.write("align_data_0.csv", "a");
  folder.write("align_data_1.csv", "b");
  PolarConfig config;
  config.result_folder = folder.path().string();
  EXPECT_EQ(freeSummaryPath(config, 1), folder.path().string() + "\\align_data_2.csv");
}

TEST(SummaryFile, NoNameWithoutFolderOrWithAnotherEvaluation) {
  const TempFolder folder;
  PolarConfig config;
  EXPECT_EQ(freeSummaryPath(config, 1), "");
  config.result_folder = folder.path().string();
  EXPECT_EQ(freeSummaryPath(config, 2), "");
  EXPECT_EQ(freeSummaryPath(config, 0), "");
  EXPECT_EQ(summaryPath(config, 1, "align_data.csv"), folder.path().string() + "\\align_data.csv");
}

}  // namespace
