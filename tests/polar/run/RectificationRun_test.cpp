#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "polar/run/PolarCore.h"
#include "support/RunFixture.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"

namespace {

struct RectificationRun : ::testing::Test, RunFixture {
  RectifiedGeometry geometry;
  std::int32_t run() {
    applyConfig();
    return core.RectificationRun(arguments, geometry);
  }
};

TEST_F(RectificationRun, SecondRunReplacesTheTable) {
  folder.write("align_data.csv", "old");
  pairs(1);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(folder.read("align_data.csv"), "id \nImages_num_: 1_PolarVersion_: 1.3.3\n\n");
}

TEST_F(RectificationRun, RowHasOneCellMoreThanTheHeaderWithTheBoardCheckOn) {
  config.spaceRms_switch = true;
  pairs(1);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(folder.read("align_data.csv"), "id \nImages_num_: 1_PolarVersion_: 1.3.3,0\n\n");
}

TEST_F(RectificationRun, FailedChecksLeaveAHeaderOnlyFile) {
  arguments.images.resize(1);
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_EQ(folder.read("align_data.csv"), "id \n");
}

TEST_F(RectificationRun, OqcSwitchAloneStartsNothing) {
  config.oqc_switch = 1;
  config.Cal_ID_DIS = {{0, 1}};
  pairs(1, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(console.out().find("detect point num"), std::string::npos);
  EXPECT_EQ(folder.read("align_data.csv"), "id ,id_dis1\nImages_num_: 1_PolarVersion_: 1.3.3\n\n");
}

/// A rendered pair that opens the point cloud, with the ids of two dots beside each other in the middle of the board.
struct RectificationRunBoard : RectificationRun {
  std::int32_t first = 0;
  std::size_t dots = 0;

  RectificationRunBoard() {
    const scene::Scene scene = *scene::makePreset("big_640", {.pairs = 1, .seed = {}, .read_noise = {}});
    const scene::ImagePair images = scene::renderPair(scene, 0);
    arguments.images = {{images.left}, {images.right}};
    arguments.targetConfigPath = scene::targetIni(scene);
    first = scene.board.rows / 2 * scene.board.cols + scene.board.cols / 2;
    dots = static_cast<std::size_t>(scene.board.rows * scene.board.cols);
    config.foursixmethod_swithch = 2;
    config.oqc_switch = 1;
    geometry.focal = 1000.0;
    geometry.baseline = -100.0;
  }
};

TEST_F(RectificationRunBoard, IdDistancesAreTakenAgainstTheCallersBoard) {
  config.Cal_ID_DIS = {{first, first + 1}};
  // One point more than the board has dots, so that the detection keeps its own board.
  geometry.boardPoints.resize(dots + 1);
  ASSERT_EQ(run(), 0);
  geometry.boardPoints.at(static_cast<std::size_t>(first) + 1) = {0, 10, 0};
  ASSERT_EQ(run(), 0);
  ASSERT_EQ(core.records.size(), 2U);
  ASSERT_EQ(core.records[0].id_dis.size(), 1U);
  EXPECT_GT(core.records[0].id_dis[0], 0.0);
  EXPECT_NEAR(core.records[1].id_dis.at(0), core.records[0].id_dis[0] - 10.0, 1e-3);
}

TEST_F(RectificationRunBoard, AnyOneOfTheCloudsSwitchesOpensItBesideTheRowDisparity) {
  config.dy_bias_switch = 1;
  config.foursixmethod_swithch = config.oqc_switch = 0;
  ASSERT_EQ(run(), 0);
  config.allpointssavecsv_swithch = 1;
  ASSERT_EQ(run(), 0);
  EXPECT_TRUE(folder.has("0_pointcloud.csv"));

  config.allpointssavecsv_swithch = 0;
  config.oqc_switch = 1;
  config.Cal_ID_DIS = {{first, first + 1}};
  geometry.boardPoints.resize(dots + 1);
  ASSERT_EQ(run(), 0);
  ASSERT_EQ(core.records.size(), 3U);
  EXPECT_TRUE(core.records[1].id_dis.empty());
  EXPECT_EQ(core.records[2].id_dis.size(), 1U);

  config.oqc_switch = 0;
  config.foursixmethod_swithch = 1;
  config.PolPoint1_ID = 5000;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 3U);
  EXPECT_EQ(core.errorText, "Fail detect foursix method point1");
}

TEST_F(RectificationRunBoard, MissingPointOfAGroupGivesThePairUp) {
  config.Cal_ID_DIS = {{5000, first}};
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(core.records.empty());
  EXPECT_THAT(console.out(), ::testing::HasSubstr("0 group 5000_id not find \n"));
  EXPECT_EQ(reported, std::vector<float>{0.003F});
}

TEST_F(RectificationRunBoard, TableSwitchOpensTheCloudBehindTheRowDifferencesOnly) {
  config.foursixmethod_swithch = 0;
  config.oqc_switch = 0;
  config.allpointssavecsv_swithch = 1;
  ASSERT_EQ(run(), 0);
  EXPECT_FALSE(folder.has("0_pointcloud.csv")) << "alone it starts nothing";
  config.dy_bias_switch = 1;
  config.dy_bias_savecsv_swithch = 1;
  ASSERT_EQ(run(), 0);
  const std::string cloud = folder.read("0_pointcloud.csv");
  const std::string rows = folder.read("0_left_dy.csv");
  EXPECT_GT(std::count(cloud.begin(), cloud.end(), '\n'), 100);
  EXPECT_EQ(std::count(cloud.begin(), cloud.end(), '\n'), std::count(rows.begin(), rows.end(), '\n'));
}

/// Rows of a table of numbers.
std::vector<std::array<double, 4>> rowsOf(const std::string& table) {
  std::vector<std::array<double, 4>> rows;
  std::istringstream stream(table);
  char comma = 0;
  for (std::array<double, 4> row{}; stream >> row[0] >> comma >> row[1] >> comma >> row[2] >> comma >> row[3];)
    rows.push_back(row);
  return rows;
}

TEST_F(RectificationRunBoard, FiveNumbersReachTheCloudInTheirPlaces) {
  config.oqc_switch = 0;
  config.allpointssavecsv_swithch = 1;
  geometry.baseline = 100.0;
  ASSERT_EQ(run(), 0);
  const auto plain = rowsOf(folder.read("0_pointcloud.csv"));
  geometry.focal = 1250.0;
  geometry.baseline = 40.0;
  geometry.cx = 300.0;
  geometry.cy = 200.0;
  geometry.disparity_offset = 7.0;
  ASSERT_EQ(run(), 0);
  const auto full = rowsOf(folder.read("0_pointcloud.csv"));
  ASSERT_EQ(plain.size(), full.size());
  ASSERT_GT(plain.size(), 100U);
  for (std::size_t k = 0; k < plain.size(); k += 10) {
    // With a focal length of 1000 and a baseline of 100 alone the rows tell the pixel and its disparity.
    const double x = plain[k][1] * 1000.0 / plain[k][3];
    const double y = plain[k][2] * 1000.0 / plain[k][3];
    const double z = 1250.0 * 40.0 / (100000.0 / plain[k][3] + 7.0);
    EXPECT_NEAR(full[k][3], z, 1e-3 * std::abs(z)) << k;
    EXPECT_NEAR(full[k][1], (x - 300.0) * z / 1250.0, 1e-3 * std::abs(z)) << k;
    EXPECT_NEAR(full[k][2], (y - 200.0) * z / 1250.0, 1e-3 * std::abs(z)) << k;
  }
}

TEST_F(RectificationRun, TypeHasNoEffect) {
  config.type = 3;
  pairs(1);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 1U);
}

TEST_F(RectificationRun, CropNeedsNoMatrices) {
  config.crop = 1;
  config.cropped_cols = 20;
  config.cropped_rows = 10;
  pairs(1);
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(core.left.K.empty());
}

TEST_F(RectificationRun, GivenUpPairsDoNotCountInTheProgress) {
  config.dy_bias_switch = 1;
  pairs(2, 400, 300);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(reported, std::vector<float>{0.003F});
  EXPECT_TRUE(core.records.empty());
}

TEST_F(RectificationRun, TriangulationSwitchesOpenHeaderGroupsOnly) {
  config.triangulate_dis_switch = config.triangulate_residual_switch = 1;
  pairs(1);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(folder.read("align_data.csv"),
            "id ,tri_rms, tri_mean, tri_min, tri_max,tri_dis_1_2_err,tri_dis_1_3_err,tri_dis_2_4_err,tri_dis_3_4_err,"
            "tri_dis_1_4_err,tri_dis_2_3_err,tri_dis_err_min,tri_dis_err_max\n"
            "Images_num_: 1_PolarVersion_: 1.3.3,0,0,0,0,0,0,0,0,0,0,0,0\n\n");
}

TEST_F(RectificationRun, EmptyImageAndCallbackEndTheRun) {
  pairs(1);
  stop_at = 0.003F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  stop_at = 1e9F;
  arguments.images[0][0] = cv::Mat();
  EXPECT_EQ(run(), polar_status::kImages);
}

TEST_F(RectificationRun, CallbackBehindAPairLeavesTheRowsBeforeAndNoLastLineEnd) {
  pairs(3);
  stop_at = 60.0F;
  EXPECT_EQ(run(), polar_status::kStoppedByCallback);
  EXPECT_EQ(core.errorText, "Callback Terminated!");
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(folder.read("align_data.csv"), "id \nImages_num_: 1_PolarVersion_: 1.3.3\n");
}

TEST_F(RectificationRun, EccentricityIsNotCompensatedHere) {
  const scene::Scene scene = *scene::makePreset("big_640", {.pairs = 1, .seed = {}, .read_noise = {}});
  const scene::ImagePair images = scene::renderPair(scene, 0);
  arguments.images = {{images.left}, {images.right}};
  arguments.targetConfigPath = scene::targetIni(scene);
  config.dy_bias_switch = 1;
  config.eccentricity = true;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(console.out().find("use eccentricity!"), std::string::npos);
}

TEST_F(RectificationRun, LongerRightListIsFineSinceTheLeftOneCounts) {
  pairs(2);
  arguments.images[1].emplace_back();
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(core.records.size(), 2U);
}

}  // namespace
