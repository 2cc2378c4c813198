#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "PolarLinePrecision/Status.h"
#include "polar/run/PolarCore.h"
#include "support/RunFixture.h"

namespace {

using ::testing::HasSubstr;

struct ImageSetRun : ::testing::Test, RunFixture {
  std::int32_t run() {
    applyConfig();
    return core.ImageSetRun(arguments, calib);
  }
};

constexpr const char* kBareRow = "_PolarVersion_: 1.3.3\n";

TEST_F(ImageSetRun, ProgressOfThreePairsIsFormedInSinglePrecision) {
  pairs(3);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(reported, (std::vector<float>{0.003F, 33.0029983520507812F, 66.0029983520507812F, 99.0029983520507812F}));
  EXPECT_EQ(core.records.size(), 3U);
}

TEST_F(ImageSetRun, OnePairReports99003) {
  pairs(1);
  EXPECT_EQ(run(), 0);
  ASSERT_EQ(reported.size(), 2U);
  EXPECT_EQ(reported[1], 1.0F * 99.0F + 0.003F);
  EXPECT_THAT(console.out(), HasSubstr("--------LoadImageFrames ------1\t----time:"));
  EXPECT_THAT(console.out(), HasSubstr("\t-----callback:99.003\n"));
}

TEST_F(ImageSetRun, SummaryEndsInAnEmptyLine) {
  pairs(2);
  run();
  EXPECT_EQ(folder.read("align_data_0.csv"),
            std::string("id \nImages_num_: 1") + kBareRow + "Images_num_: 2" + kBareRow + "\n");
}

TEST_F(ImageSetRun, ThirdRunOnAFolderWritesTheThirdFile) {
  folder.write("align_data_0.csv", "old");
  folder.write("align_data_1.csv", "older");
  pairs(1);
  run();
  EXPECT_TRUE(folder.has("align_data_2.csv"));
  EXPECT_EQ(folder.read("align_data_0.csv"), "old");
}

TEST_F(ImageSetRun, OtherEvaluationValuesMakeRecordsWithoutAFile) {
  pairs(2);
  config.evaluation = 2;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(ImageSetRun, NoFolderWithoutSavedPolarLines) {
  config.dy_bias_switch = 1;
  pairs(1, 400, 300);
  run();
  EXPECT_FALSE(folder.has("result"));
}

TEST_F(ImageSetRun, SavedPolarLinesMakeThreeFoldersEvenIfTheyFailLater) {
  config.savepolarline = 1;
  config.foursixmethod_swithch = 1;
  pairs(1, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(folder.has("result/0.png"));
  EXPECT_TRUE(folder.has("result_left/0_left.png"));
  EXPECT_TRUE(folder.has("result_right/0_right.png"));
}

TEST_F(ImageSetRun, SavedPicturesAreLeftRightAndBothWithTheirLines) {
  config.savepolarline = 1;
  config.foursixmethod_swithch = 1;
  config.type = 5;  // Unwarped.
  const cv::Mat left(90, 120, CV_8UC1, cv::Scalar(60));
  const cv::Mat right(90, 120, CV_8UC1, cv::Scalar(200));
  arguments.images = {{left}, {right}};
  arguments.targetConfigPath = "";
  EXPECT_EQ(run(), 0);
  const auto saved = [&](const char* name) { return cv::imread(folder.file(name), cv::IMREAD_UNCHANGED); };
  const auto isAll = [](const cv::Mat& picture, const cv::Scalar& colour) {
    return picture.type() == CV_8UC3 && cv::norm(picture, cv::Mat(picture.size(), CV_8UC3, colour), cv::NORM_INF) == 0;
  };
  EXPECT_TRUE(isAll(saved("result_left/0_left.png"), {60, 60, 60}));
  EXPECT_TRUE(isAll(saved("result_right/0_right.png"), {200, 200, 200}));
  const cv::Mat both = saved("result/0.png");
  ASSERT_EQ(both.size(), cv::Size(240, 90));
  EXPECT_TRUE(isAll(both.row(64), {0, 255, 0}));
  EXPECT_TRUE(isAll(both(cv::Rect(0, 65, 120, 25)), {60, 60, 60}));
  EXPECT_TRUE(isAll(both(cv::Rect(120, 65, 120, 25)), {200, 200, 200}));
}

TEST_F(ImageSetRun, FolderThatCannotBeMadeEndsTheRun) {
  config.savepolarline = 1;
  config.result_folder = folder.file("missing/below");
  pairs(1);
  EXPECT_EQ(run(), polar_status::kResultFolder);
  EXPECT_EQ(core.errorText, "Make result file error!");
  EXPECT_EQ(console.out(), "Make result file error!\n");
}

TEST_F(ImageSetRun, AllThreeFoldersAreTriedBeforeTheVerdict) {
  config.savepolarline = 1;
  folder.write("result_left", "a file is found by the test for existence, so this one counts as made");
  pairs(0);
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "result"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "result_right"));
}

TEST_F(ImageSetRun, FoldersMadeBesideTheOneThatFailsRemain) {
  config.savepolarline = 1;
  std::filesystem::create_symlink(folder.path() / "nowhere", folder.path() / "result");
  pairs(0);
  EXPECT_EQ(run(), polar_status::kResultFolder);
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "result_left"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "result_right"));
  EXPECT_FALSE(folder.has("align_data_0.csv"));
}

class ImageSetRunWrongNumberOfLists : public ::testing::TestWithParam<std::size_t> {};

TEST_P(ImageSetRunWrongNumberOfLists, IsNoStereoSetAndTouchesNoFile) {
  RunFixture f;
  f.applyConfig();
  f.arguments.images.resize(GetParam());
  EXPECT_EQ(f.core.ImageSetRun(f.arguments, f.calib), polar_status::kImages);
  EXPECT_EQ(f.core.errorText, "Read image Error!");
  EXPECT_TRUE(std::filesystem::is_empty(f.folder.path()));
  EXPECT_TRUE(f.reported.empty());
}

INSTANTIATE_TEST_SUITE_P(Lists, ImageSetRunWrongNumberOfLists, ::testing::Values(0U, 1U, 3U));

TEST_F(ImageSetRun, EmptyImageEndsTheRunAndLeavesTheSummarySoFar) {
  pairs(3);
  arguments.images[1][1] = cv::Mat();
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_EQ(core.errorText, "Read image Error!");
  EXPECT_THAT(console.out(), HasSubstr("The image is empty!\n"));
  EXPECT_EQ(folder.read("align_data_0.csv"), std::string("id \nImages_num_: 1") + kBareRow);
}

TEST_F(ImageSetRun, ShorterRightListFailsOnTheAccess) {
  pairs(2);
  arguments.images[1].pop_back();
  applyConfig();
  EXPECT_THROW(core.ImageSetRun(arguments, calib), std::out_of_range);
}

TEST_F(ImageSetRun, NoPairsIsSuccessWithoutRecords) {
  pairs(0);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(folder.read("align_data_0.csv"), "id \n\n");
  EXPECT_EQ(reported, std::vector<float>{0.003F});
}

TEST_F(ImageSetRun, PolyWithoutTablesFailsAfterTheSummaryWasMade) {
  pairs(1);
  config.type = 3;
  calib.left.poly_nx = calib.left.poly_ny = calib.right.poly_nx = 1;
  EXPECT_EQ(run(), polar_status::kPolyTables);
  EXPECT_EQ(core.errorText, "Read Poly Params Error!");
  EXPECT_EQ(folder.read("align_data_0.csv"), "id \n");
  EXPECT_TRUE(reported.empty());
}

TEST_F(ImageSetRun, CallbackStopsBeforeTheFirstPair) {
  pairs(1);
  stop_at = 0.003F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  EXPECT_EQ(core.errorText, "Callback Terminated!");
  EXPECT_TRUE(core.records.empty());
}

TEST_F(ImageSetRun, CallbackStopsAfterAPairWhichThenGetsNoRecord) {
  pairs(3);
  stop_at = 60.0F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(folder.read("align_data_0.csv"), std::string("id \nImages_num_: 1") + kBareRow);
}

TEST_F(ImageSetRun, NullCallbackIsNone) {
  pairs(1);
  arguments.progress = nullptr;
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(reported.empty());
}

TEST_F(ImageSetRun, CropShiftAddsUpOverTheSet) {
  pairs(3);
  config.crop = 1;
  config.cropped_cols = 31;  // dx = (40 - 31) / 2 = 4
  config.cropped_rows = 25;  // dy = (30 - 25) / 2 = 2
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.left.K.at<double>(0, 2), 20.0 - 3 * 4);
  EXPECT_EQ(core.left.K.at<double>(1, 2), 15.0 - 3 * 2);
  EXPECT_EQ(core.right.K.at<double>(0, 2), 21.0 - 3 * 4);
  EXPECT_EQ(core.right.K.at<double>(1, 2), 16.0 - 3 * 2);
  EXPECT_EQ(arguments.images[0][0].cols, 40);
}

TEST_F(ImageSetRun, PairsOfOneCameraAndSizeShareTheMapsOfTheirRectification) {
  config.dy_bias_switch = 1;
  pairs(3, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.maps.made(), 1U);
}

TEST_F(ImageSetRun, CropMakesTheMapsAnewForEachPair) {
  config.dy_bias_switch = 1;
  config.crop = 1;
  config.cropped_cols = 380;
  config.cropped_rows = 290;
  pairs(3, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.maps.made(), 3U);
}

TEST_F(ImageSetRun, CropIsTakenForEachImageByItself) {
  pairs(1);
  arguments.images[1][0] = cv::Mat(35, 50, CV_8UC1, cv::Scalar(90));
  config.crop = 1;
  config.cropped_cols = 31;
  config.cropped_rows = 25;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.left.K.at<double>(0, 2), 20.0 - 4);
  EXPECT_EQ(core.left.K.at<double>(1, 2), 15.0 - 2);
  EXPECT_EQ(core.right.K.at<double>(0, 2), 21.0 - 9);
  EXPECT_EQ(core.right.K.at<double>(1, 2), 16.0 - 5);
}

struct BadCrop {
  int cols, rows;
};
class ImageSetRunImpossibleCrop : public ::testing::TestWithParam<BadCrop> {};

TEST_P(ImageSetRunImpossibleCrop, RaisesTheLibrarysException) {
  RunFixture f;
  f.pairs(1);
  f.applyConfig();
  f.config.crop = 1;
  f.config.cropped_cols = GetParam().cols;
  f.config.cropped_rows = GetParam().rows;
  f.applyConfig();
  EXPECT_THROW(f.core.ImageSetRun(f.arguments, f.calib), cv::Exception);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ImageSetRunImpossibleCrop,
                         ::testing::Values(BadCrop{0, 10}, BadCrop{10, 0}, BadCrop{-1, 10}, BadCrop{41, 10},
                                           BadCrop{10, 31}));

TEST_F(ImageSetRun, FailedTriangulationGivesThePairUp) {
  config.triangulate_dis_switch = 1;
  pairs(2, 400, 300);  // Grey images without a board.
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(core.records.empty());
  EXPECT_EQ(reported, std::vector<float>{0.003F});
  EXPECT_THAT(console.out(), HasSubstr("CalTriangulateRepBrown\n"));
}

TEST_F(ImageSetRun, FailedTriangulationEndsTheRunWhereTheSwitchSaysSo) {
  config.triangulate_residual_switch = 1;
  config.discalsave = true;
  pairs(2, 400, 300);
  EXPECT_EQ(run(), polar_status::kTooFewDetected);
  EXPECT_TRUE(core.records.empty());
  EXPECT_EQ(folder.read("align_data_0.csv"), "id ,tri_rms, tri_mean, tri_min, tri_max\n")
      << "without its last line end";
}

TEST_F(ImageSetRun, TargetThatCannotBeLoadedLeavesItsTextAndStatus) {
  config.triangulate_residual_switch = 1;
  config.discalsave = true;
  arguments.targetConfigPath = "";
  pairs(1, 400, 300);
  EXPECT_EQ(run(), polar_status::kTargetConfig);
  EXPECT_EQ(core.errorText, " Fail init camera model! ");
}

TEST_F(ImageSetRun, GivenUpRowDisparityAndBoardCheckLosePairsOnly) {
  config.dy_bias_switch = 1;
  pairs(1, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(core.records.empty());
  config.dy_bias_switch = 0;
  config.spaceRms_switch = true;
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(core.records.empty());
  EXPECT_THAT(console.out(), HasSubstr("distortion model: Brown\n"));
}

TEST_F(ImageSetRun, OutputWithoutAPictureListFailsOnTheAccess) {
  config.dy_bias_switch = 1;
  config.x_y = 7;
  pairs(1);
  applyConfig();
  EXPECT_THROW(core.ImageSetRun(arguments, calib), std::out_of_range);
}

}  // namespace
