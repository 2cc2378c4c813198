#include "polar/run/PolarPrecision.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "PolarLinePrecision/Status.h"
#include "support/ConsoleCapture.h"

namespace {

struct PolarPrecisionOneCall : ::testing::Test {
  ConsoleCapture console;
  PolarPrecision precision;
  ImagePairList images{{cv::Mat(10, 10, CV_8UC1, cv::Scalar(0))}, {cv::Mat(10, 10, CV_8UC1, cv::Scalar(0))}};
  std::vector<float> reported;
  float stop_at = 1e9F;
  ProgressCallback progress = [this](float value) {
    reported.push_back(value);
    return !(value >= stop_at);
  };
  PolarPrecisionOneCall() { precision.config.spaceRms_switch = false; }
  std::int32_t run() { return precision.RunImageSet({"board_type: 2", images, &progress}, StereoCalibParams{}); }
};

TEST_F(PolarPrecisionOneCall, FetchingNoResultsLeavesTheCallersVector) {
  std::vector<PolarResultRecord> mine(2);
  EXPECT_EQ(precision.FetchResults(mine), polar_status::kNoResults);
  EXPECT_EQ(mine.size(), 2U);
}

TEST_F(PolarPrecisionOneCall, FetchingIntoItselfIsHarmless) {
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(precision.FetchResults(precision.results), 0);
  EXPECT_EQ(precision.results.size(), 1U);
}

TEST_F(PolarPrecisionOneCall, FetchesAgainAndAgainWhileItLives) {
  ASSERT_EQ(run(), 0);
  for (int i = 0; i < 2; ++i) {
    std::vector<PolarResultRecord> mine(2);
    EXPECT_EQ(precision.FetchResults(mine), 0);
    EXPECT_EQ(mine.size(), 1U);
  }
}

TEST_F(PolarPrecisionOneCall, HandsItsResultsOverWhenItEnds) {
  std::vector<PolarResultRecord> mine(2);
  EXPECT_EQ(PolarPrecision().FetchResults(mine), polar_status::kNoResults);
  EXPECT_EQ(mine.size(), 2U);
  ASSERT_EQ(run(), 0);
  const PolarResultRecord* const made = precision.results.data();
  EXPECT_EQ(std::move(precision).FetchResults(mine), 0);
  EXPECT_EQ(mine.data(), made);
}

TEST_F(PolarPrecisionOneCall, SuccessExportsTheRecords) {
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(reported, (std::vector<float>{0.002F, 0.003F, 99.003F}));
  EXPECT_EQ(precision.results.size(), 1U);
  EXPECT_THAT(console.out(), ::testing::StartsWith("--------Initialization Parameters OK\t----time:"));
  EXPECT_THAT(console.out(), ::testing::HasSubstr("\t-----callback:0.0553\n"));
}

TEST_F(PolarPrecisionOneCall, FailureExportsNothingEvenAfterFinishedPairs) {
  images[0].push_back(images[0][0]);
  images[1].emplace_back();
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_TRUE(precision.results.empty());
  EXPECT_EQ(precision.lastError(), "Read image Error!");
}

TEST_F(PolarPrecisionOneCall, CallbackAtTheStartLetsNoRunBegin) {
  stop_at = 0.002F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  EXPECT_EQ(precision.lastError(), "Callback Terminated");
  EXPECT_EQ(reported, std::vector<float>{0.002F});
}

TEST_F(PolarPrecisionOneCall, ObjectWithoutACoreAnswersMinusOne) {
  PolarPrecision bare(nullptr);
  EXPECT_EQ(bare.RunImageSet({"", images}, StereoCalibParams{}), polar_status::kNoCore);
  EXPECT_EQ(bare.RunFrames({"", images}, StereoCalibParams{}), polar_status::kNoCore);
  EXPECT_EQ(bare.RunRectified({"", images}, RectifiedGeometry{}), polar_status::kNoCore);
  EXPECT_TRUE(console.out().empty());
}

TEST_F(PolarPrecisionOneCall, RunsWorkOnACopyOfTheConfiguration) {
  ASSERT_EQ(run(), 0);
  EXPECT_FALSE(precision.config.spaceRms_switch);
  EXPECT_EQ(precision.config.f_scale, 1.0F);
}

TEST_F(PolarPrecisionOneCall, BoardPointsOfTheCallReachFramesAndImageSetsOnly) {
  precision.config.dy_bias_switch = 1;
  precision.config.type = 5;  // Unwarped.
  precision.boardPoints.resize(15);
  for (auto& list : images) list = {cv::Mat(256, 320, CV_8UC1, cv::Scalar(90))};
  const std::string target = "board_type: 2\nrows: 3\ncols: 5\nstep: 20\n";
  const auto printedBy = [&](auto run) {
    const std::size_t before = console.out().size();
    run();
    return console.out().substr(before);
  };
  using ::testing::HasSubstr;
  EXPECT_THAT(printedBy([&] {
                precision.RunImageSet({target, images}, StereoCalibParams{});
              }),
              HasSubstr("board GT mode"));
  EXPECT_THAT(printedBy([&] {
                precision.RunFrames({target, images}, StereoCalibParams{});
              }),
              HasSubstr("board GT mode"));
  EXPECT_THAT(printedBy([&] {
                precision.RunRectified({target, images}, RectifiedGeometry{});
              }),
              HasSubstr("board Normal mode"));
}

TEST_F(PolarPrecisionOneCall, CallersCalibrationChangesItsOrderAndBringsTheBoard) {
  ExportedCalibParams mine;
  mine.left.intrinsics[0] = 1;
  mine.left.width = 640.9;
  mine.right.intrinsics[0] = 2;
  mine.boardPoints = {{1, 2, 3}};
  precision.boardPoints = {{9, 9, 9}, {8, 8, 8}};
  StereoCalibParams calib;
  EXPECT_EQ(precision.ConvertCalibParams(mine, calib), 0);
  EXPECT_EQ(calib.left.intrinsics[0], 1.0);
  EXPECT_EQ(calib.right.intrinsics[0], 2.0);
  EXPECT_EQ(calib.left.width, 640U);
  ASSERT_EQ(precision.boardPoints.size(), 1U);
  EXPECT_EQ(precision.boardPoints[0], cv::Point3f(1, 2, 3));
}

TEST(PolarPrecision, RectifiedGeometryNarrowsTheBoard) {
  RectifiedParams mine;
  mine.focal = 1;
  mine.baseline = 2;
  mine.cx = 3;
  mine.cy = 4;
  mine.disparity_offset = 5;
  mine.boardPoints = {{0.1, 0.2, 0.3}};
  const RectifiedGeometry geometry = rectifiedGeometry(mine);
  EXPECT_EQ(geometry.focal, 1.0);
  EXPECT_EQ(geometry.baseline, 2.0);
  EXPECT_EQ(geometry.cx, 3.0);
  EXPECT_EQ(geometry.cy, 4.0);
  EXPECT_EQ(geometry.disparity_offset, 5.0);
  EXPECT_EQ(geometry.boardPoints.at(0), cv::Point3f(0.1F, 0.2F, 0.3F));
}

}  // namespace
