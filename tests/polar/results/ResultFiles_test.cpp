#include "polar/results/ResultFiles.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace {

TEST(ResultFiles, FolderNumberAndSuffix) { EXPECT_EQ(pairFile("out", 12, "_right_tri.csv"), "out/12_right_tri.csv"); }

TEST(ResultFiles, NoFolderNoFile) { EXPECT_EQ(pairFile("", 12, "_right_tri.csv"), ""); }

TEST(ResultFiles, OldFilesAreNeverOverwritten) {
  const TempFolder folder;
  folder.write("align_data_0.csv", "a");
  folder.write("align_data_1.csv", "b");
  PolarConfig config;
  config.evaluation = 1;
  config.result_folder = folder.path().string();
  EXPECT_EQ(freeSummaryPath(config), folder.path().string() + "\\align_data_2.csv");
}

TEST(ResultFiles, NoNameWithoutFolderOrWithAnotherEvaluation) {
  const TempFolder folder;
  PolarConfig config;
  config.evaluation = 1;
  EXPECT_EQ(freeSummaryPath(config), "");
  config.result_folder = folder.path().string();
  for (const std::int32_t evaluation : {2, 0}) {
    config.evaluation = evaluation;
    EXPECT_EQ(freeSummaryPath(config), "");
    EXPECT_EQ(summaryPath(config, "align_data.csv"), "");
  }
  config.evaluation = 1;
  EXPECT_EQ(summaryPath(config, "align_data.csv"), folder.path().string() + "\\align_data.csv");
}

}  // namespace
