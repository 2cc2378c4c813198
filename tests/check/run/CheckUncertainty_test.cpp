#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CheckedSet.h"

namespace polarline {
namespace {

std::vector<std::string> certainFigures(const PairCheck& pair) {
  std::vector<std::string> names;
  for (const FigureUncertainty& each : pair.uncertainty) names.push_back(each.name);
  return names;
}

TEST(CheckUncertainty, IsOfEveryMeanAndRootMeanSquareOfAFinishedPair) {
  const CopiedSet set;
  switchAllOn(set);
  set.blank("left_1.png");
  const Check check = set.check();
  EXPECT_THAT(certainFigures(check.pairs.at(0)),
              ::testing::UnorderedElementsAre("tri_rms", "tri_mean", "dy_means", "dy_ratio", "allpoints_means",
                                              "space_rms", "dis_rms", "nor_rms", "zero_dis", "icp_x_rms", "icp_y_rms",
                                              "icp_z_rms", "icp_nor_rms", "gt_rms"));
  const FigureUncertainty& dy_means = *check.pairs[0].uncertaintyOf("dy_means");
  EXPECT_GT(dy_means.sd, 0.0);
  EXPECT_LE(dy_means.low95, check.pairs[0].figure("dy_means")->values[0]);
  EXPECT_GE(dy_means.high95, check.pairs[0].figure("dy_means")->values[0]);
  EXPECT_TRUE(check.pairs.at(1).uncertainty.empty()) << "given up";
}

TEST(CheckUncertainty, IsTheSameWhereverTheRunBegins) {
  const CopiedSet set;
  switchAllOn(set);
  CheckOptions second;
  second.pairs = {1, 1};
  const PairCheck of_all = set.check().pairs.at(1);
  const PairCheck alone = set.check(second).pairs.at(0);
  ASSERT_EQ(certainFigures(of_all), certainFigures(alone));
  for (std::size_t k = 0; k < alone.uncertainty.size(); ++k) {
    EXPECT_EQ(of_all.uncertainty[k].sd, alone.uncertainty[k].sd);
    EXPECT_EQ(of_all.uncertainty[k].low95, alone.uncertainty[k].low95);
  }
}

TEST(CheckUncertainty, FramesHaveNone) {
  const CopiedSet set(MemoryRun::twoFrames());
  EXPECT_TRUE(set.check().pairs.at(0).uncertainty.empty());
}

}  // namespace
}  // namespace polarline
