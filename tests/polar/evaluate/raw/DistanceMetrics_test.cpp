#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <opencv2/imgcodecs.hpp>

#include "camera/FakeCamera.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "support/ExactPair.h"

namespace {

const cv::Mat kImage = cv::Mat::zeros(512, 640, CV_8UC1);

struct DistanceMetrics : testing::Test {
  ExactPair exact;

  /// A board of 36 points, all switches of the evaluation off.
  DistanceMetrics() { exact.makeBoard(6, 6); }

  void chooseCorners() {
    PolarConfig& config = exact.config;
    config.triangulate_dis_switch = 1;
    config.TriPoint1_ID = 0;
    config.TriPoint2_ID = 5;
    config.TriPoint3_ID = 30;
    config.TriPoint4_ID = 35;
    config.TriPoint1_GT = {0, 0, 0};
    config.TriPoint2_GT = {90, 0, 0};
    config.TriPoint3_GT = {0, 90, 0};
    config.TriPoint4_GT = {90, 90, 0};
  }
  PairStatus brown(PairEvaluator& evaluator, std::int32_t evalu_model = 0) {
    return evaluator.CalTriangulateRepBrown({evalu_model, "target", kImage, kImage, exact.cameras()});
  }
  /// Cameras without a lens, as the polynomial form takes them; the rig must have none either.
  static PinholeCameraIntrinsicsPOL plainCamera(const scene::Camera& camera) {
    PolyTables tables;
    tables.cells_x = 1;
    tables.cells_y = 1;
    return PinholeCameraIntrinsicsPOL(640, 512, camera.fx, camera.fy, camera.cx, camera.cy, 1.0, tables);
  }
  PairStatus poly(PairEvaluator& evaluator) {
    return evaluator.CalTriangulateRepPOLY({0, "target", kImage, kImage, exact.cameras()}, plainCamera(exact.rig.left),
                                           plainCamera(exact.rig.right));
  }
  void takeLensesOff() {
    exact.rig.left.lens = {};
    exact.rig.right.lens = {};
  }
};

TEST_F(DistanceMetrics, StatusOfTheMeasurementPasses) {
  for (const PairStatus status : {-5, -6, -8}) {
    exact.measured = status;
    PairEvaluator evaluator = exact.exactEvaluator();
    EXPECT_EQ(brown(evaluator), status);
    EXPECT_EQ(evaluator.usable, 1);
  }
}

TEST_F(DistanceMetrics, SixSharedPointsAreEnough) {
  for (std::int32_t id = 0; id < 5; ++id) exact.see(id, exact.pointLeft(exact.board[static_cast<std::size_t>(id)]));
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), -9);
  EXPECT_EQ(evaluator.usable, 0);
  exact.see(5, exact.pointLeft(exact.board[5]));
  EXPECT_EQ(brown(evaluator), 0);
  EXPECT_EQ(evaluator.usable, 1);
}

TEST_F(DistanceMetrics, ModelThatMeasuresNothingHasTooFewPoints) {
  exact.seeBoard();
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator, 1), 0);
  EXPECT_EQ(brown(evaluator, 3), -9);
}

TEST_F(DistanceMetrics, LeavesTheConsoleInFixedNotation) {
  exact.seeBoard();
  PairEvaluator evaluator = exact.exactEvaluator();
  brown(evaluator);
  std::cout << 0.5;
  EXPECT_EQ(exact.console.out(), "0.50000000");
}

TEST_F(DistanceMetrics, ResidualsOfAnExactPairAreTiny) {
  exact.seeBoard();
  exact.config.triangulate_residual_switch = 1;
  PairEvaluator evaluator = exact.exactEvaluator();
  ASSERT_EQ(brown(evaluator), 0);
  EXPECT_GT(evaluator.figures.tri_max, 0.0F);
  EXPECT_LT(evaluator.figures.tri_max, 0.002F);
}

TEST_F(DistanceMetrics, ObserversSeeWhereTheDotsWereExpectedAndByWhichCameras) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  ASSERT_EQ(brown(evaluator), 0);
  const PairObservation& seen = evaluator.seen;
  ASSERT_EQ(seen.raw.size(), 36U);
  ASSERT_EQ(seen.predicted_right.size(), 36U);
  ASSERT_EQ(seen.fitted_left.size(), 36U);
  for (std::size_t k = 0; k < 36; ++k) {
    EXPECT_LT(cv::norm(seen.predicted_right[k] - seen.raw[k].right), 0.002);
    EXPECT_LT(cv::norm(seen.fitted_left[k] - seen.raw[k].left), 0.002);
  }
  EXPECT_EQ(seen.cameras.left_K(0, 0), exact.rig.left.fx);
  EXPECT_EQ(seen.cameras.right_K(1, 2), exact.rig.right.cy);
  EXPECT_EQ(seen.cameras.R(0, 1), exact.cameras().R.at<double>(0, 1));
  EXPECT_EQ(seen.cameras.T[0], exact.rig.right_from_left_translation.x);
}

TEST_F(DistanceMetrics, ResidualPictureIsTheRightImage) {
  exact.seeBoard();
  exact.config.triangulate_residual_switch = 1;
  exact.config.tri_bias_savepng_swithch = 1;
  PairEvaluator evaluator = exact.exactEvaluator();
  const cv::Mat right(512, 640, CV_8UC1, cv::Scalar(77));
  ASSERT_EQ(evaluator.CalTriangulateRepBrown({0, "target", kImage, right, exact.cameras()}), 0);
  const cv::Mat picture = cv::imread(exact.folder.file("0_right_tri.png"), cv::IMREAD_UNCHANGED);
  ASSERT_EQ(picture.size(), right.size());
  EXPECT_EQ(cv::norm(picture, cv::Mat(right.size(), CV_8UC3, cv::Scalar(77, 77, 77)), cv::NORM_INF), 0.0);
  EXPECT_EQ(cv::countNonZero(right != 77), 0) << "the caller's image stays";
}

TEST_F(DistanceMetrics, FailedResidualStepEndsIt) {
  exact.seeBoard();
  for (cv::Point2f& pixel : exact.points.right_points) pixel.y += 30.0F;
  exact.config.triangulate_residual_switch = 1;
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), -9);
  EXPECT_EQ(evaluator.figures.dis_rms, 0.0F);
  EXPECT_EQ(evaluator.errorText, "");
}

TEST_F(DistanceMetrics, BoardScaledByAThousandthIsSeenAsTooLong) {
  exact.seeBoard([](const cv::Point3f& p) { return p * 1.001F; });
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  ASSERT_EQ(brown(evaluator), 0);
  EXPECT_NEAR(evaluator.figures.nor_rms, 0.001, 1e-4);
  ASSERT_EQ(evaluator.figures.pairPoints.size(), 36u);
  // From corner to corner: a thousandth of 90 sqrt(2).
  const PairDistances& distances = *evaluator.figures.distances;
  EXPECT_EQ(distances.idOfOther(0, 34), 35);
  EXPECT_NEAR(distances.errorsOf(0).back(), 0.1273, 0.01);
  double range = 0.0;
  for (const cv::Point3f& point : exact.board) range += scene::norm(exact.pointLeft(point * 1.001F)) / 36.0;
  EXPECT_NEAR(evaluator.figures.zero_dis, range, 0.01);
  // What a rigid motion leaves of the scaling: a thousandth of the distance from the middle.
  double square_sum = 0.0;
  for (const cv::Point3f& point : exact.board) square_sum += std::pow(cv::norm(point - cv::Point3f(45, 45, 0)), 2.0);
  EXPECT_NEAR(evaluator.figures.icp_nor_rms, 0.001 * std::sqrt(square_sum / 36.0), 0.004);
  EXPECT_LT(evaluator.figures.gt_rms, 0.15F);
  EXPECT_GT(evaluator.figures.gt_rms, 0.01F);
}

TEST_F(DistanceMetrics, FiguresArePrintedInOrder) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  brown(evaluator);
  const std::string out = exact.console.out();
  std::size_t last = 0;
  for (const char* label : {"dis_rms: ", "\nzero_dis:", "\nnor_rms:", "\nicp_rx:", "\nicp_x_rms:   ", "\ngt_rms:"}) {
    const std::size_t place = out.find(label);
    ASSERT_NE(place, std::string::npos) << label;
    EXPECT_GE(place, last);
    last = place;
  }
}

TEST_F(DistanceMetrics, ThirtyBoardPointsAreSkippedAndTheFourPointsStillRun) {
  exact.makeBoard(6, 6);
  exact.seeBoard();
  exact.board.resize(30);
  exact.config.discalswitch = true;
  chooseCorners();
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), 0);
  EXPECT_TRUE(evaluator.figures.pairPoints.empty());
  EXPECT_EQ(exact.console.out(), "");
  EXPECT_NE(evaluator.figures.tri_dis[7], 0.0F);
  EXPECT_LT(std::abs(evaluator.figures.tri_dis[7]), 0.05F);
}

TEST_F(DistanceMetrics, ThirtyOneBoardPointsAreCompared) {
  exact.board.resize(31);
  exact.seeBoard();
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), 0);
  EXPECT_EQ(evaluator.figures.pairPoints.size(), 31u);
}

TEST_F(DistanceMetrics, WithoutTheDistanceStepTheRecordsStayAsTheyWere) {
  exact.seeBoard();
  PairEvaluator evaluator = exact.exactEvaluator();
  evaluator.figures.pairPoints.resize(3);
  EXPECT_EQ(brown(evaluator), 0);
  EXPECT_EQ(evaluator.figures.pairPoints.size(), 3u);
}

TEST_F(DistanceMetrics, SaveSwitchOffWritesNoTableButComputesAll) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), 0);
  EXPECT_GT(evaluator.figures.dis_rms, 0.0F);
  EXPECT_GT(evaluator.figures.gt_rms, 0.0F);
  EXPECT_TRUE(std::filesystem::is_empty(exact.folder.path()));
}

TEST_F(DistanceMetrics, ResidualsReachTheRecords) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  exact.config.triangulate_residual_switch = 1;
  exact.points.right_points[20].y += 2.0F;
  PairEvaluator evaluator = exact.exactEvaluator();
  ASSERT_EQ(brown(evaluator), 0);
  // The triangulation splits the two pixels between the images.
  for (const PairPointRecord& record : evaluator.figures.pairPoints) {
    EXPECT_NEAR(record.right_err, record.id == 20 ? 1.0 : 0.0, 0.1) << record.id;
  }
  EXPECT_EQ(evaluator.figures.pairPoints[20].right_err, evaluator.figures.tri_max);
}

TEST_F(DistanceMetrics, MissingPointEndsItAfterAllElseIsStored) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  chooseCorners();
  exact.config.TriPoint3_ID = 99;
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), -10);
  EXPECT_EQ(evaluator.errorText, "Fail detect foursix method point3");
  EXPECT_GT(evaluator.figures.gt_rms, 0.0F);
  EXPECT_EQ(evaluator.figures.pairPoints.size(), 36u);
}

TEST_F(DistanceMetrics, IdOutsideTheBoardIsAnError) {
  exact.seeBoard();
  exact.shared(400, {320, 250}, {300, 250});
  exact.config.discalswitch = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_THROW(brown(evaluator), std::out_of_range);
}

/// One point of 144 seen four pixels off in both images, along the columns.
struct DistanceMetricsOutlierPair : DistanceMetrics {
  DistanceMetricsOutlierPair() {
    exact.makeBoard(12, 12);
    takeLensesOff();
    exact.seeBoard();
    exact.points.left_points[40].y += 12.0F;
    exact.points.right_points[40].y += 12.0F;
    exact.config.discalswitch = true;
    exact.config.discalsave = true;
  }
};

TEST_F(DistanceMetricsOutlierPair, BrownFormFindsItAndNamesIt) {
  chooseCorners();
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(brown(evaluator), -13);
  EXPECT_EQ(evaluator.errorText, "Failed in board check!Find outlier id: 40;total num of detect points: 144");
  const std::string out = exact.console.out();
  EXPECT_NE(out.find("\n**********find maximum outlier**********\n40\n"), std::string::npos);
  EXPECT_EQ(evaluator.figures.tri_dis[7], 0.0F) << "the four points come after the search";
  EXPECT_GT(evaluator.figures.gt_rms, 0.9F) << "no distance is left out";
}

TEST_F(DistanceMetricsOutlierPair, PolynomialFormDoesNotSearchAndLeavesLargeDistancesOut) {
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(poly(evaluator), 0);
  EXPECT_EQ(exact.console.out().find("outlier"), std::string::npos);
  EXPECT_LT(evaluator.figures.gt_rms, 0.5F);
  EXPECT_TRUE(exact.folder.has("0_diserr.csv"));
  EXPECT_TRUE(exact.folder.has("0_tripoints.csv"));
  EXPECT_FALSE(exact.folder.has("0_boardcheck.csv"));
}

/// A lens that gathers everything in the middle of the image.
struct GatheringCamera : FakeCamera {
  bool AddDistortion(const cv::Point2d& /*ideal*/, cv::Point2d& raw) const override {
    raw = {0.0, 0.0};
    return true;
  }
};

TEST_F(DistanceMetrics, PolynomialFormKeepsExactlyFivePixelsAndNoMore) {
  exact.config.discalswitch = true;
  exact.rig.left.cx = 320.0;
  exact.rig.left.cy = 256.0;
  exact.seeBoard();
  exact.points.left_points.assign(36, {323.0F, 260.0F});  // 3 and 4 from the middle
  const GatheringCamera camera;
  const auto groundTruthRms = [&] {
    PairEvaluator evaluator = exact.exactEvaluator();
    EXPECT_EQ(evaluator.CalTriangulateRepPOLY({0, "target", kImage, kImage, exact.cameras()}, camera, camera), 0);
    return evaluator.figures.gt_rms;
  };
  EXPECT_EQ(groundTruthRms(), 5.0F);
  for (std::size_t k = 1; k < 36; ++k) exact.points.left_points[k].y = std::nextafter(260.0F, 300.0F);
  EXPECT_EQ(groundTruthRms(), 5.0F) << "the others are above and left out";
  exact.points.left_points[0].y = 258.0F;
  EXPECT_EQ(groundTruthRms(), std::sqrt(13.0F));
}

TEST_F(DistanceMetrics, BothFormsAgreeOnCamerasWithoutLens) {
  takeLensesOff();
  exact.seeBoard([](const cv::Point3f& p) { return p * 1.001F; });
  exact.config.discalswitch = true;
  exact.config.triangulate_residual_switch = 1;
  chooseCorners();
  PairEvaluator as_brown = exact.exactEvaluator();
  PairEvaluator as_poly = exact.exactEvaluator();
  ASSERT_EQ(brown(as_brown), 0);
  ASSERT_EQ(poly(as_poly), 0);
  EXPECT_EQ(as_brown.figures.dis_rms, as_poly.figures.dis_rms);
  EXPECT_EQ(as_brown.figures.gt_rms, as_poly.figures.gt_rms);
  EXPECT_EQ(as_brown.figures.tri_dis, as_poly.figures.tri_dis);
  EXPECT_EQ(as_brown.figures.tri_rms, as_poly.figures.tri_rms);
}

TEST_F(DistanceMetrics, BoardCheckTableHoldsMeanAndFitRows) {
  exact.seeBoard();
  exact.config.discalswitch = true;
  exact.config.discalsave = true;
  PairEvaluator evaluator = exact.exactEvaluator();
  ASSERT_EQ(brown(evaluator), 0);
  const std::string table = exact.folder.read("0_boardcheck.csv");
  EXPECT_EQ(table.rfind("id_, ,dis_err_mean\n0,dis_err_mean,", 0), 0u);
  EXPECT_NE(table.find("\n\nid_, ,gt_err_mean\n0,gt_err_mean,"), std::string::npos);
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 2 * 37 + 1);
}

TEST_F(DistanceMetrics, FailedPolynomialPointDropsOutOfTheResiduals) {
  takeLensesOff();
  exact.seeBoard();
  exact.config.triangulate_residual_switch = 1;
  exact.config.tir_bias_savecsv_swithch = 1;
  // A steep cell: the correction grows by twice the point's own step, so the inverse runs away from every start but 0.
  PolyTables steep;
  steep.cells_x = 1;
  steep.cells_y = 1;
  steep.x[1] = 2.5F;
  const scene::Camera& camera = exact.rig.left;
  const PinholeCameraIntrinsicsPOL left(640, 512, camera.fx, camera.fy, camera.cx, camera.cy, 1.0, steep);
  const auto right = plainCamera(exact.rig.right);
  PairEvaluator evaluator = exact.exactEvaluator();
  EXPECT_EQ(evaluator.CalTriangulateRepPOLY({0, "target", kImage, kImage, exact.cameras()}, left, right), -9);
  const std::string out = exact.console.out();
  std::ostringstream first;
  first << std::fixed << std::setprecision(8) << "irl_err: " << exact.points.left_points[0].x << " "
        << exact.points.left_points[0].y << "\n";
  EXPECT_EQ(out.rfind(first.str(), 0), 0u) << out.substr(0, 80);
  EXPECT_EQ(exact.folder.read("0_right_tri.csv"), "");
}

}  // namespace
