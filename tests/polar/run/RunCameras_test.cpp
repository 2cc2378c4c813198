#include "polar/run/RunCameras.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/RunFixture.h"

namespace {

/// Loads the fixture's calibration for a distortion model.
bool load(RunFixture& fixture, std::int32_t type) {
  fixture.config.type = type;
  fixture.applyConfig();
  return loadRunCameras(fixture.core, fixture.calib);
}

struct Expected {
  std::int32_t type;
  CameraFloats left, right;
};
class RunCamerasByType : public ::testing::TestWithParam<Expected>, public RunFixture {};

TEST_P(RunCamerasByType, TakesWhatTheModelHasUseFor) {
  calib.left.poly_nx = calib.left.poly_ny = calib.right.poly_nx = calib.right.poly_ny = 1;
  calib.extrinsics = {0.1, 0.2, 0.3, 4, 5, 6};
  ASSERT_TRUE(load(*this, GetParam().type));
  EXPECT_EQ(core.left_dist, GetParam().left);
  EXPECT_EQ(core.right_dist, GetParam().right);
  EXPECT_EQ(core.rotation, (std::array<float, 3>{0.1F, 0.2F, 0.3F}));
  EXPECT_EQ(core.translation, (std::array<float, 3>{4, 5, 6}));
  EXPECT_EQ(core.T.at<double>(1, 0), 5.0);
}

INSTANTIATE_TEST_SUITE_P(Types, RunCamerasByType,
                         ::testing::Values(Expected{0,
                                                    {100, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0, 0, 0.7F, 0.8F},
                                                    {110, 111, 21, 16, 1.1F, 1.2F, 1.3F, 1.4F, 0, 0, 1.7F, 1.8F}},
                                           Expected{1,
                                                    {100, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F},
                                                    {110, 111, 21, 16, 1.1F, 1.2F, 1.3F, 1.4F, 1.5F, 1.6F, 1.7F, 1.8F}},
                                           Expected{2,
                                                    {100, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0, 0, 0, 0},
                                                    {110, 111, 21, 16, 1.1F, 1.2F, 1.3F, 1.4F, 0, 0, 0, 0}},
                                           Expected{
                                               3,
                                               {100, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F},
                                               {110, 111, 21, 16, 1.1F, 1.2F, 1.3F, 1.4F, 1.5F, 1.6F, 1.7F, 1.8F}}));

class RunCamerasUnknownType : public ::testing::TestWithParam<std::int32_t>, public RunFixture {};

TEST_P(RunCamerasUnknownType, LoadsNothingAndGoesOn) {
  calib.extrinsics = {0.1, 0.2, 0.3, 4, 5, 6};
  ASSERT_TRUE(load(*this, GetParam()));
  EXPECT_EQ(core.left_dist, CameraFloats{});
  EXPECT_EQ(core.translation, (std::array<float, 3>{}));
  EXPECT_TRUE(core.left.K.empty());
}

INSTANTIATE_TEST_SUITE_P(Types, RunCamerasUnknownType, ::testing::Values(-1, 4, 5));

TEST(RunCameras, EveryTableMustBeThere) {
  for (int missing = 0; missing < 4; ++missing) {
    RunFixture f;
    f.calib.left.poly_nx = missing != 0;
    f.calib.left.poly_ny = missing != 1;
    f.calib.right.poly_nx = missing != 2;
    f.calib.right.poly_ny = missing != 3;
    EXPECT_FALSE(load(f, 3)) << missing;
  }
}

TEST(RunCameras, GridOfMoreCellsThanATableHoldsIsNone) {
  RunFixture f;
  f.calib.left.poly_nx = f.calib.right.poly_nx = 10;
  f.calib.left.poly_ny = f.calib.right.poly_ny = 5;
  EXPECT_TRUE(load(f, 3));
  f.calib.right.poly_nx = 17;
  f.calib.right.poly_ny = 3;  // 51 cells
  EXPECT_FALSE(load(f, 3));
}

TEST(RunCameras, ExtrinsicsPassThroughSinglePrecision) {
  RunFixture f;
  f.calib.extrinsics = {0, 0, 0.1, 0.2, 0.3, 0.4};
  ASSERT_TRUE(load(f, 1));
  EXPECT_EQ(f.core.T.at<double>(0), static_cast<double>(0.2F));
  EXPECT_EQ(f.core.T.at<double>(2), static_cast<double>(0.4F));
  EXPECT_NEAR(f.core.R.at<double>(1, 0), std::sin(static_cast<double>(0.1F)), 1e-15);
  EXPECT_GT(std::abs(f.core.R.at<double>(1, 0) - std::sin(0.1)), 1e-10);
}

TEST(RunCameras, EachObjectTakesTheTablesOfItsSide) {
  RunFixture f;
  f.calib.left.poly_nx = f.calib.left.poly_ny = f.calib.right.poly_nx = f.calib.right.poly_ny = 1;
  f.calib.left.poly_x[0] = 0.25F;
  f.calib.right.poly_x[0] = -0.5F;
  ASSERT_TRUE(load(f, 3));
  cv::Point2d raw;
  f.core.left_camera.AddDistortion({0.125, 0.125}, raw);
  EXPECT_EQ(raw.x, 0.125 - 0.25);
  f.core.right_camera.AddDistortion({0.125, 0.125}, raw);
  EXPECT_EQ(raw.x, 0.125 + 0.5);
}

TEST(RunCameras, EvaluatorTakesTheCoresValues) {
  RunFixture f;
  f.config.eccentricity = true;
  f.applyConfig();
  f.core.boardPoints = {{1, 2, 3}};
  ASSERT_TRUE(load(f, 1));
  const PairEvaluator evaluator = makeEvaluator(f.core);
  EXPECT_EQ(evaluator.left_dist, f.core.left_dist);
  EXPECT_EQ(evaluator.right_dist, f.core.right_dist);
  EXPECT_EQ(evaluator.boardPoints.size(), 1U);
  EXPECT_EQ(evaluator.result_folder, f.config.result_folder);
  EXPECT_TRUE(evaluator.eccentricity);
}

}  // namespace
