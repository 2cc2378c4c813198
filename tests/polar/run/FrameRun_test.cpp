#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PolarLinePrecision/Status.h"
#include "polar/run/PolarCore.h"
#include "support/FrameDiscs.h"
#include "support/RunFixture.h"

namespace {

struct FrameRun : ::testing::Test, RunFixture {
  FrameRun() { config.frame_work = 1; }
  std::int32_t run() {
    applyConfig();
    return core.FrameRun(arguments, calib);
  }
};

TEST_F(FrameRun, FailingFrameStillMakesARecordARowAndAReport) {
  pairs(2, 400, 300);  // No board in the images and no frame points asked for.
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 2U);
  EXPECT_EQ(reported, (std::vector<float>{0.003F, 49.503F, 99.003F}));
  EXPECT_EQ(folder.read("frame_result.csv"),
            "id \nImages_num_: 1_PolarVersion_: 1.3.3\nImages_num_: 2_PolarVersion_: 1.3.3\n\n");
}

TEST_F(FrameRun, SecondRunReplacesTheFirstsTable) {
  folder.write("frame_result.csv", "old");
  pairs(0);
  run();
  EXPECT_EQ(folder.read("frame_result.csv"), "id \n\n");
}

TEST_F(FrameRun, PolyWithoutTablesHasTheImageTextHere) {
  pairs(1);
  arguments.images.pop_back();
  config.type = 3;
  EXPECT_EQ(run(), polar_status::kPolyTables);
  EXPECT_EQ(core.errorText, "Read image Error!");
}

TEST_F(FrameRun, NoStereoSet) {
  arguments.images.resize(3);
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_EQ(core.errorText, "Read image Error!");
  EXPECT_EQ(folder.read("frame_result.csv"), "id \n");
}

TEST_F(FrameRun, EmptyImageEndsTheRun) {
  pairs(1);
  arguments.images[0][0] = cv::Mat();
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_THAT(console.out(), ::testing::HasSubstr("The image is empty!\n"));
}

TEST_F(FrameRun, CallbackStops) {
  pairs(1);
  stop_at = 0.003F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  EXPECT_EQ(core.errorText, "Callback Terminated!");
}

TEST_F(FrameRun, NoFolderAndNoPictureWhateverTheSwitchesSay) {
  config.savepolarline = config.dy_bias_switch = 1;
  pairs(1, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_FALSE(folder.has("result"));
}

TEST_F(FrameRun, CropShiftAddsUpHereToo) {
  pairs(2, 400, 300);
  config.crop = 1;
  config.cropped_cols = 390;
  config.cropped_rows = 280;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.left.K.at<double>(0, 2), 20.0 - 2 * 5);
  EXPECT_EQ(core.right.K.at<double>(1, 2), 16.0 - 2 * 10);
}

TEST_F(FrameRun, ShortFrameListsFailOnTheAccess) {
  config.Frame_ID = {1, 2};
  config.Frame_IRL = {{10.0, 10.0}};
  config.Frame_IRR = {{10.0, 10.0}};
  pairs(1, 400, 300);
  applyConfig();
  EXPECT_THROW(core.FrameRun(arguments, calib), std::out_of_range);
}

TEST_F(FrameRun, LensIsTheTablesOfAPolyRunAndTheCoefficientsOfAnyOther) {
  // Two points 420 apart at a distance of 1000, seen without a lens: the other model's lens must play no part.
  const cv::Mat image = discs(discGrid());
  arguments.images = {{image}, {image}};
  arguments.targetConfigPath = frameTarget();
  config.Frame_ID = {1, 2};
  config.Frame_IRL = {{340, 352}, {760, 352}};
  config.Frame_IRR = {{220, 352}, {640, 352}};
  config.Frame_3D = {{0, 0, 0}, {420, 0, 0}};
  config.Frame_ID_DIS = {{1, 2}};
  calib.extrinsics = {0, 0, 0, -120, 0, 0};
  const auto errorWith = [&](std::int32_t type, double K1, float square) {
    for (CameraCalib* camera : {&calib.left, &calib.right}) {
      camera->intrinsics = {1000, 1000, 640, 512, K1};
      camera->poly_nx = camera->poly_ny = 1;
      camera->poly_x[3] = square;
    }
    config.type = type;
    EXPECT_EQ(run(), 0);
    return core.records.back().frameValues.at(0);
  };
  EXPECT_NEAR(errorWith(3, 0.2, 0.0F), 0.0, 0.02);
  EXPECT_NEAR(errorWith(1, 0.0, 0.2F), 0.0, 0.02);
  EXPECT_GT(std::abs(errorWith(3, 0.0, 0.2F)), 1.0);
  EXPECT_GT(std::abs(errorWith(1, 0.2, 0.0F)), 1.0);
}

TEST_F(FrameRun, HeaderIsFormedOnlyForAFile) {
  config.Frame_ID_DIS = {{1}};
  config.result_folder.clear();
  pairs(0);
  EXPECT_EQ(run(), 0);
  config.result_folder = folder.path().string();
  applyConfig();
  EXPECT_THROW(core.FrameRun(arguments, calib), std::out_of_range);
}

}  // namespace
