// Runs with the compensation of imaged centres switched on.
#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/core.hpp>

#include "support/ConsoleLines.h"
#include "support/MemoryRun.h"
#include "support/TruePose.h"

namespace {

cv::Mat redOf(const cv::Mat& canvas) {
  cv::Mat red;
  cv::inRange(canvas, cv::Scalar(0, 0, 255), cv::Scalar(0, 0, 255), red);
  return red;
}

/// In images that are searched at four times their size the edges stay at that scale, so a compensated centre lies far
/// from the detected one; the edges themselves are drawn below the picture.
TEST(CompensatedRuns, MarksStandAtTheDetectedCentres) {
  MemoryRun two(MemoryRun::twoPairs());
  const auto canvasWith = [&](const char* eccentricity) {
    const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", eccentricity},
                                                      {"triangulate_dis_switch", "0"},
                                                      {"dy_bias_switch", "0"},
                                                      {"foursixmethod_swithch", "0"},
                                                      {"discalswitch", "1"},
                                                      {"discalsave", "0"}}));
    EXPECT_EQ(run.records.size(), 2U);
    return run.records.at(0);
  };
  const PolarResultRecord plain = canvasWith("0");
  const PolarResultRecord compensated = canvasWith("1");
  const auto markedOf = [](const PolarResultRecord& record) { return record.pairPoints.at(62); };
  ASSERT_GT(std::abs(markedOf(compensated).left_x - markedOf(plain).left_x), 10.0F);

  EXPECT_GT(cv::countNonZero(redOf(plain.detect_canvas)), 100);
  EXPECT_EQ(cv::norm(redOf(plain.detect_canvas), redOf(compensated.detect_canvas), cv::NORM_INF), 0.0);
  // The first of the four chosen dots, in the left half.
  const scene::DotTruth dot = scene::pairTruth(two.set.scene(), 0).dots.at(20);
  const cv::Point centre(cvRound(dot.ellipse_left.centre.x), cvRound(dot.ellipse_left.centre.y));
  const cv::Mat around = redOf(compensated.detect_canvas)(cv::Rect(centre.x - 3, centre.y - 3, 7, 7));
  EXPECT_GE(cv::countNonZero(around), 8);
}

struct Opening {
  const char* name;
  const char* rows;
  const char* cloud;
};
class CompensatedRunsRectifiedBy : public ::testing::TestWithParam<Opening> {};

TEST_P(CompensatedRunsRectifiedBy, SwitchesTheCompensationOffForTheRestOfTheRun) {
  MemoryRun two(MemoryRun::twoPairs());
  const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", "1"},
                                                    {"triangulate_dis_switch", "0"},
                                                    {"dy_bias_switch", GetParam().rows},
                                                    {"foursixmethod_swithch", GetParam().cloud}}));
  ASSERT_EQ(run.records.size(), 2U);
  // Both images of the first triangulation, and then never again: neither rectified, nor in the board check, nor in
  // the second pair.
  EXPECT_EQ(console_lines::textsBehind("use eccentricity!", run.out).size(), 2U);
  EXPECT_LT(run.out.rfind("use eccentricity!"), run.out.find(" Virtual camera cx: "));
  EXPECT_EQ(run.records[1].PoseReport, run.records[0].PoseReport);
}

INSTANTIATE_TEST_SUITE_P(Evaluations, CompensatedRunsRectifiedBy,
                         ::testing::Values(Opening{"RowsAlone", "1", "0"}, Opening{"CloudAlone", "0", "1"},
                                           Opening{"Both", "1", "1"}),
                         [](const auto& opening) { return opening.param.name; });

TEST(CompensatedRuns, EachFrameReportsThePosesOfItsBoard) {
  MemoryRun two(MemoryRun::twoFrames());
  const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", "1"}}));
  ASSERT_EQ(run.records.size(), 2U);
  const scene::Scene& scene = two.set.scene();
  for (std::size_t frame = 0; frame < 2; ++frame) {
    const scene::Pose& left_from_board = scene.left_from_board[frame];
    const auto left = truePose(left_from_board, scene.board);
    const auto right = truePose(scene::rightFromBoard(scene.rig, left_from_board), scene.board);
    for (std::size_t k = 0; k < 4; ++k) {
      EXPECT_NEAR(run.records[frame].PoseReport[k], left[k], 0.3) << frame << " " << k;
      EXPECT_NEAR(run.records[frame].PoseReport[k + 4], right[k], 0.3) << frame << " " << k;
    }
  }
}

TEST(CompensatedRuns, FrameWithoutABoardKeepsTheReportOfTheOneBefore) {
  MemoryRun two(MemoryRun::twoFrames());
  two.blank(0, 1);
  const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", "1"}}));
  ASSERT_EQ(run.records.size(), 2U);
  EXPECT_NE(run.records[0].PoseReport[3], 0.0);
  EXPECT_EQ(run.records[1].PoseReport, run.records[0].PoseReport);
}

TEST(CompensatedRuns, FramesWithoutTheCompensationReportNoPose) {
  MemoryRun two(MemoryRun::twoFrames());
  const RunOutcome run = two.run(two.set.polarText());
  ASSERT_EQ(run.records.size(), 2U);
  EXPECT_EQ(run.records[1].PoseReport, (std::array<double, 8>{}));
  EXPECT_EQ(run.out.find("use eccentricity!"), std::string::npos);
}

}  // namespace
