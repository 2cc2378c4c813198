#include <gtest/gtest.h>

#include <cmath>

#include "support/EvaluatorFixture.h"

namespace {

/// Principal point (100, 200), focal length 1000, baseline 64: a disparity of 64 gives depth 1000 and one unit a pixel.
cv::Mat reprojectionMatrix() {
  return (cv::Mat_<double>(4, 4) << 1, 0, 0, -100, 0, 1, 0, -200, 0, 0, 0, 1000, 0, 0, 1.0 / 64, 0);
}

struct PointCloud : public ::testing::Test, public EvaluatorFixture {
  cv::Mat image = cv::Mat::zeros(4, 4, CV_8UC1);
  cv::Mat Q = reprojectionMatrix();
  std::vector<cv::Point2f> left_points, right_points;
  std::vector<CloudPoint> cloud;

  PairStatus check(PairEvaluator& target, std::int32_t evalu_model = 0) {
    return target.CheckPointCloud({evalu_model, "", image, image}, Q, left_points, right_points, cloud);
  }
  PairStatus checkGroups(PairEvaluator& target) {
    return target.CheckPointCloudGroups({0, "", image, image}, left_points, right_points, cloud);
  }
  /// A point that lands at (x, y, 1000).
  void pointAt(std::int32_t id, float x, float y) { shared(id, {x + 100, y + 200}, {x + 36, y + 200}); }
  /// 2 rows of 3: 10 apart along the rows, 15 from row to row.
  void grid() {
    for (std::int32_t id = 0; id < 6; ++id) {
      pointAt(id, static_cast<float>(id % 3 * 10), static_cast<float>(id / 3 * 15));
    }
  }
  /// The corners 0, 2, 3, 5 of the grid with the true lengths short by 1 along and by 2 across.
  void fourPoints() {
    config.foursixmethod_swithch = 1;
    config.PolPoint1_ID = 0;
    config.PolPoint2_ID = 2;
    config.PolPoint3_ID = 3;
    config.PolPoint4_ID = 5;
    config.PolPoint1_GT = {0, 0, 0};
    config.PolPoint2_GT = {19, 0, 0};
    config.PolPoint3_GT = {0, 13, 0};
    config.PolPoint4_GT = {19, 13, 0};
  }
};

TEST_F(PointCloud, ReprojectsByTheMatrix) {
  shared(1, {150, 260}, {86, 1});
  shared(2, {150, 260}, {118, 2});  // Half the disparity, twice as far.
  shared(3, {150, 260}, {214, 3});  // Behind the camera.
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  ASSERT_EQ(cloud.size(), 3U);
  EXPECT_EQ(cv::Point3f(cloud[0].x, cloud[0].y, cloud[0].z), cv::Point3f(50, 60, 1000));
  EXPECT_EQ(cv::Point3f(cloud[1].x, cloud[1].y, cloud[1].z), cv::Point3f(100, 120, 2000));
  EXPECT_EQ(cv::Point3f(cloud[2].x, cloud[2].y, cloud[2].z), cv::Point3f(-50, -60, -1000));
  EXPECT_EQ(cv::norm(target.seen.Q - cv::Matx44d(Q), cv::NORM_INF), 0.0) << "observers see the matrix";
  EXPECT_EQ(cloud[1].id, 2);
  EXPECT_EQ(cloud[1].row_dist, 0.0F);
  EXPECT_EQ(left_points, points.left_points);
  EXPECT_EQ(right_points, points.right_points);
}

TEST_F(PointCloud, DisparityIsADifferenceInSinglePrecision) {
  // 4.0999999 - 0.3000000 is 3.79999989, and 3.79999995 in single precision; the matrix takes 3.75 away.
  for (std::int32_t id = 0; id < 3; ++id) shared(id, {4.1F, 0}, {0.3F, 0});
  Q = (cv::Mat_<double>(4, 4) << 0, 0, 1, -3.75, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(cloud[0].x, static_cast<float>(3.8F - 3.75));
  EXPECT_NE(cloud[0].x, static_cast<float>(static_cast<double>(4.1F) - 0.3F - 3.75));
}

TEST_F(PointCloud, ATableThatWillNotOpenIsNoError) {
  grid();
  config.allpointssavecsv_swithch = 1;
  config.result_folder = folder.file("missing");
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(cloud.size(), 6U);
}

TEST_F(PointCloud, AllSwitchesOffStillFillsTheList) {
  grid();
  PairEvaluator target = evaluator();
  target.figures.pol_dis.fill(3.0F);
  target.figures.allpoints_means = 3.0F;
  target.usable = 0;
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(cloud.size(), 6U);
  EXPECT_EQ(target.figures.pol_dis[0], 3.0F);
  EXPECT_EQ(target.figures.allpoints_means, 3.0F);
  EXPECT_EQ(target.usable, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(PointCloud, TableHasIdAndCoordinatesWithoutHeader) {
  shared(7, {150, 260}, {86, 260});
  shared(3, {100.5F, 200}, {36.5F, 200});
  shared(5, {112.34567F, 200}, {48.34567F, 200});
  config.allpointssavecsv_swithch = 1;
  folder.write("4_pointcloud.csv", "what an earlier run left here, longer than all of the new rows together\n");
  PairEvaluator target = evaluator();
  target.image_id = 4;
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(folder.read("4_pointcloud.csv"), "3,0.5,0,1000\n5,12.3457,0,1000\n7,50,60,1000\n");
}

TEST_F(PointCloud, NoFolderNoTable) {
  grid();
  config.allpointssavecsv_swithch = 1;
  config.result_folder.clear();
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(PointCloud, AnIdWithoutARightPartnerGivesNoRow) {
  grid();
  leftOnly(50, {1, 1});
  rightOnly(60, {1, 1});
  config.allpointssavecsv_swithch = 1;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target, 1), 0);
  EXPECT_EQ(asked_model, 1);
  EXPECT_EQ(cloud.size(), 6U);
  EXPECT_EQ(folder.read("0_pointcloud.csv").find("50,"), std::string::npos);
}

TEST_F(PointCloud, TwoPointsAreTooFewAndThreeAreEnough) {
  pointAt(0, 0, 0);
  pointAt(1, 10, 0);
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), -9);
  EXPECT_EQ(target.usable, 0);
  EXPECT_TRUE(cloud.empty());
  left_points.clear();
  right_points.clear();
  pointAt(2, 20, 0);
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(target.usable, 1);
}

TEST_F(PointCloud, FailedMeasurementGivesOne) {
  grid();
  measured = -6;
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 1);
  EXPECT_EQ(checkGroups(target), 1);
  EXPECT_TRUE(cloud.empty());
}

TEST_F(PointCloud, WithoutAMatrixOpenCvRefuses) {
  grid();
  Q.release();
  PairEvaluator target = evaluator();
  EXPECT_THROW(check(target), cv::Exception);
}

TEST_F(PointCloud, FourPointsByHand) {
  grid();
  fourPoints();
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  const float diagonal = static_cast<float>(25.0 - std::sqrt(19.0 * 19.0 + 13.0 * 13.0));
  const std::array<float, 8> expected = {1, 2, 2, 1, diagonal, diagonal, 1, 2};
  for (std::size_t k = 0; k < expected.size(); ++k) EXPECT_FLOAT_EQ(target.figures.pol_dis[k], expected[k]) << k;
}

struct PointCloudMissingFour : public PointCloud, public ::testing::WithParamInterface<int> {};

TEST_P(PointCloudMissingFour, FirstMissingPointEndsTheEvaluation) {
  grid();
  fourPoints();
  config.allpoints_calc_switch = 1;
  config.oqc_switch = 1;
  const std::array<std::int32_t*, 4> ids = {&config.PolPoint1_ID, &config.PolPoint2_ID, &config.PolPoint3_ID,
                                            &config.PolPoint4_ID};
  for (std::size_t k = static_cast<std::size_t>(GetParam()) - 1; k < ids.size(); ++k) *ids[k] = 99;
  PairEvaluator target = evaluator();
  target.figures.pol_dis.fill(3.0F);
  target.figures.allpoints_means = 3.0F;
  EXPECT_EQ(check(target), -10);
  EXPECT_EQ(target.errorText, "Fail detect foursix method point" + std::to_string(GetParam()));
  EXPECT_EQ(target.figures.pol_dis[0], 3.0F);
  EXPECT_EQ(target.figures.allpoints_means, 3.0F);
}

INSTANTIATE_TEST_SUITE_P(Points, PointCloudMissingFour, ::testing::Values(1, 2, 3, 4));

TEST_F(PointCloud, ARealPointWhoseSumTruncatesToZeroCountsAsMissing) {
  pointAt(0, 0, 0);
  pointAt(2, -500, -500.5F);  // Sum -0.5.
  pointAt(3, 0, 13);
  pointAt(5, 19, 13);
  fourPoints();
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), -10);
  EXPECT_EQ(target.errorText, "Fail detect foursix method point2");
}

TEST_F(PointCloud, OnlyOneSwitchesTheFourPointsOn) {
  grid();
  fourPoints();
  config.foursixmethod_swithch = 2;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.pol_dis[0], 0.0F);
}

TEST_F(PointCloud, SpacingReachesItsThreeFigures) {
  grid();
  config.allpoints_calc_switch = 1;
  config.pattern_cols = 3;
  config.pattern_step = 10.0F;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.allpoints_means, 3.75F);  // (4 * 10 + 25 + 3 * 15) / 8 - 10
  EXPECT_EQ(target.figures.allpoint_max, 15.0F);     // The row's end to the next row's start.
  EXPECT_EQ(target.figures.allpoints_min, 0.0F);
  EXPECT_EQ(cloud[2].row_dist, 25.0F);
  EXPECT_EQ(cloud[0].col_dist, 15.0F);
}

TEST_F(PointCloud, GroupsFormHasNoSpacingAndTheOtherNoGroups) {
  grid();
  config.allpoints_calc_switch = 1;
  config.oqc_switch = 1;
  config.Cal_ID_DIS = {{98, 99}};
  config.pattern_cols = 3;
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(console.out(), "");
  target.rectified = {1000, 64, 100, 200, 128};
  target.figures.allpoints_means = 3.0F;
  cloud.clear();
  EXPECT_EQ(checkGroups(target), 12);
  EXPECT_EQ(target.figures.allpoints_means, 3.0F);
  EXPECT_EQ(cloud[0].row_dist, 0.0F);
}

TEST_F(PointCloud, GroupsReprojectRightMinusLeft) {
  for (std::int32_t id = 0; id < 3; ++id) shared(id, {110, 70}, {120, 70});
  PairEvaluator target = evaluator();
  target.rectified = {500, 2, 10, 20, 40};
  ASSERT_EQ(checkGroups(target), 0);
  EXPECT_EQ(cv::Point3f(cloud[0].x, cloud[0].y, cloud[0].z), cv::Point3f(4, 2, 20));  // z = 1000 / (10 + 40)
}

TEST_F(PointCloud, GroupsReprojectInSinglePrecision) {
  for (std::int32_t id = 0; id < 3; ++id) shared(id, {0, 0}, {3, 0});
  PairEvaluator target = evaluator();
  target.rectified = {4097, 4097, 0, 0, 0};  // The product 16785409 rounds to 16785408.
  ASSERT_EQ(checkGroups(target), 0);
  EXPECT_EQ(cloud[0].z, 5595136.0F);
}

TEST_F(PointCloud, GroupsCompareWithTheBoard) {
  for (std::int32_t id = 0; id < 3; ++id)
    shared(id, {10.0F * static_cast<float>(id), 0}, {10.0F * static_cast<float>(id), 0});
  config.oqc_switch = 1;
  config.Cal_ID_DIS = {{0, 1}, {2, 0}};
  PairEvaluator target = evaluator();
  target.rectified = {100, 10, 0, 0, 10};  // Depth 100, a unit a pixel.
  target.boardPoints = {{0, 0, 0}, {9.5F, 0, 0}, {0, 20.25F, 0}};
  ASSERT_EQ(checkGroups(target), 0);
  EXPECT_EQ(target.figures.id_dis, (std::vector<double>{0.5, -0.25}));
}

TEST_F(PointCloud, GroupsWithAnEmptyListReturnSuccess) {
  grid();
  config.oqc_switch = 1;
  PairEvaluator target = evaluator();
  target.rectified = {100, 10, 0, 0, 100};
  target.figures.id_dis = {1, 2};
  EXPECT_EQ(checkGroups(target), 0);
  EXPECT_TRUE(target.figures.id_dis.empty());
}

TEST_F(PointCloud, OnlyOneSwitchesTheGroupsOn) {
  grid();
  config.oqc_switch = 2;
  config.Cal_ID_DIS = {{98, 99}};
  PairEvaluator target = evaluator();
  target.rectified = {100, 10, 0, 0, 100};
  EXPECT_EQ(checkGroups(target), 0);
  EXPECT_TRUE(target.figures.id_dis.empty());
}

}  // namespace
