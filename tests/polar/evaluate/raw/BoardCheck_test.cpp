#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "camera/BrownCamera.h"
#include "support/EvaluatorFixture.h"

namespace {

constexpr double kLift = 0.5;

/// A board seen squarely at a distance of 1000 by two equal cameras 100 apart, so that every pixel is a whole number.
struct BoardCheck : public ::testing::Test, public EvaluatorFixture {
  cv::Mat image = cv::Mat::zeros(4, 4, CV_8UC1);
  EvaluationCameras cameras;
  CameraFloats lens = {1000, 1000, 640, 512, 0, 0, 0, 0, 0, 0, 0, 0};
  std::vector<cv::Point3f> board;
  cv::Point3f lift{0, 0, static_cast<float>(kLift)};

  BoardCheck() {
    cameras.left_K = (cv::Mat_<double>(3, 3) << 1000, 0, 640, 0, 1000, 512, 0, 0, 1);
    cameras.right_K = cameras.left_K.clone();
    cameras.R = cv::Mat::eye(3, 3, CV_64FC1);
    cameras.T = (cv::Mat_<double>(3, 1) << -100, 0, 0);
  }

  /// `count` points of a board of 6 columns. The true board is turned a quarter about its normal and moved; every other
  /// point of it is lifted by `lift`, the others by its opposite. With even rows no rigid motion takes any of it away.
  void seeBoard(std::int32_t count) {
    for (std::int32_t id = 0; id < count; ++id) {
      const float x = static_cast<float>(id % 6 * 20);
      const float y = static_cast<float>(id / 6 * 20);
      shared(id, {640 + x, 512 + y}, {540 + x, 512 + y});
      const bool up = (id % 6 + id / 6) % 2 == 0;
      board.push_back(cv::Point3f(7 - y, 11 + x, 0) + (up ? lift : -lift));
    }
  }
  PairEvaluator boardEvaluator() {
    PairEvaluator result = evaluator();
    result.boardPoints = board;
    result.left_dist = lens;
    result.right_dist = lens;
    result.figures.space_rms = 42.0;
    return result;
  }
  PairStatus check(PairEvaluator& target) { return target.CheckBoardBrown({0, "", image, image, cameras}); }
  PairStatus checkPoly(PairEvaluator& target) {
    const BrownCamera camera(lens);
    return target.CheckBoardPoly({0, "", image, image, cameras}, camera, camera);
  }
};

TEST_F(BoardCheck, DistanceLeftAfterTheFitIsTheLift) {
  seeBoard(36);
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_NEAR(target.figures.space_rms, kLift, 1e-3);
  EXPECT_EQ(target.usable, 1);
  EXPECT_EQ(console.out(), "");
}

TEST_F(BoardCheck, LiftCountsAlongEveryAxis) {
  lift = {0.3F, 0.6F, 0.2F};  // Its length is 0.7.
  seeBoard(36);
  config.discalsave = true;
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_NEAR(target.figures.space_rms, 0.7, 1e-3);
  const std::string table = folder.read("0_boardcheck.csv");
  const std::string label = "\n35,space_rms,";
  const std::size_t row = table.find(label);
  ASSERT_NE(row, std::string::npos);
  EXPECT_NEAR(std::stod(table.substr(row + label.size())), 0.7, 2e-3);
}

TEST_F(BoardCheck, PolynomialFormGivesTheSameFigureAndWritesNoTable) {
  seeBoard(36);
  config.discalsave = true;
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(checkPoly(target), 0);
  EXPECT_NEAR(target.figures.space_rms, kLift, 1e-3);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(BoardCheck, OnlyTheLeftFramesPointsCount) {
  // The other camera's frame may be anywhere: the left-frame points of these pixels stay what they were.
  seeBoard(36);
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(check(target), 0);
  const double first = target.figures.space_rms;
  cameras.R = (cv::Mat_<double>(3, 3) << 0, -1, 0, 1, 0, 0, 0, 0, 1);
  cameras.T = (cv::Mat_<double>(3, 1) << 0, -100, 0);
  for (cv::Point2f& pixel : points.right_points) pixel = {640 - (pixel.y - 512), 512 + (pixel.x + 100 - 640) - 100};
  ASSERT_EQ(check(target), 0);
  EXPECT_NEAR(target.figures.space_rms, first, 1e-3);
}

TEST_F(BoardCheck, TableFollowsTheRowsThatAreThere) {
  seeBoard(36);
  config.discalsave = true;
  folder.write("3_boardcheck.csv", "id_, ,gt_err_mean\n35,gt_err_mean,1\n");
  PairEvaluator target = boardEvaluator();
  target.image_id = 3;
  ASSERT_EQ(check(target), 0);
  const std::string text = folder.read("3_boardcheck.csv");
  const std::string start = "id_, ,gt_err_mean\n35,gt_err_mean,1\n\nid_, ,space_rms\n";
  ASSERT_EQ(text.substr(0, start.size()), start);
  std::istringstream rows(text.substr(start.size()));
  std::string row;
  int id = 0;
  for (; std::getline(rows, row); ++id) {
    const std::string label = std::to_string(id) + ",space_rms,";
    ASSERT_EQ(row.substr(0, label.size()), label);
    EXPECT_NEAR(std::stod(row.substr(label.size())), kLift, 2e-3) << id;  // Not scaled.
  }
  EXPECT_EQ(id, 36);
}

TEST_F(BoardCheck, NothingIsWrittenWhileSavingIsOffOrWithoutAFolder) {
  seeBoard(36);
  PairEvaluator off = boardEvaluator();
  ASSERT_EQ(check(off), 0);
  config.discalsave = true;
  config.result_folder.clear();
  PairEvaluator homeless = boardEvaluator();
  ASSERT_EQ(check(homeless), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(BoardCheck, SwitchedOffStillMeasuresAndKeepsTheFigure) {
  seeBoard(36);
  config.spaceRms_switch = false;
  config.discalsave = true;
  PairEvaluator target = boardEvaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.space_rms, 42.0);
  EXPECT_EQ(measurements, 1);
  EXPECT_EQ(folder.read("0_boardcheck.csv"), "\nid_, ,space_rms\n");
}

TEST_F(BoardCheck, SwitchedOffStillTriangulates) {
  seeBoard(36);
  config.spaceRms_switch = false;
  cameras.R.release();
  PairEvaluator target = boardEvaluator();
  EXPECT_THROW(check(target), cv::Exception);
}

TEST_F(BoardCheck, ThirtyOneKnownPointsAreNeeded) {
  seeBoard(30);
  PairEvaluator too_few = boardEvaluator();
  EXPECT_EQ(check(too_few), 0);
  EXPECT_EQ(too_few.figures.space_rms, 42.0);
  board.emplace_back(1000, 1000, 1000);  // Known, but not seen.
  PairEvaluator enough = boardEvaluator();
  EXPECT_EQ(check(enough), 0);
  EXPECT_LT(enough.figures.space_rms, 1.0);
}

TEST_F(BoardCheck, SixSharedPointsAreNeeded) {
  seeBoard(36);
  const std::vector<cv::Point3f> whole_board = board;
  points = {};
  seeBoard(5);
  board = whole_board;
  PairEvaluator target = boardEvaluator();
  EXPECT_EQ(check(target), -9);
  EXPECT_EQ(target.usable, 0);
  EXPECT_EQ(target.figures.space_rms, 42.0);
  points = {};
  seeBoard(6);
  board = whole_board;
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(target.usable, 1);
  EXPECT_NE(target.figures.space_rms, 42.0);
}

TEST_F(BoardCheck, FailedMeasurementIsPrintedAndGivesOne) {
  measured = -6;
  config.discalsave = true;
  PairEvaluator target = boardEvaluator();
  EXPECT_EQ(check(target), 1);
  EXPECT_EQ(console.out(), "Error in detect ellipse pixel coordinate!");
  EXPECT_EQ(target.usable, 1);
  EXPECT_EQ(checkPoly(target), 1);
  EXPECT_EQ(folder.read("0_boardcheck.csv"), "\nid_, ,space_rms\n");
}

TEST_F(BoardCheck, TheKthPointTakesTheKthLeftId) {
  seeBoard(36);
  points.left_by_id.clear();
  for (std::int32_t id = 0; id < 36; ++id) points.left_by_id.emplace(id + 36, cv::Point2f());
  std::vector<cv::Point3f> shifted(36, cv::Point3f(0, 0, 0));
  shifted.insert(shifted.end(), board.begin(), board.end());
  board = shifted;
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_NEAR(target.figures.space_rms, kLift, 1e-3);
}

TEST_F(BoardCheck, AnIdBeyondTheBoardIsRefused) {
  seeBoard(36);
  board.pop_back();
  PairEvaluator target = boardEvaluator();
  EXPECT_THROW(check(target), std::out_of_range);
}

TEST_F(BoardCheck, AMirroredBoardIsNotReachedByAReflection) {
  seeBoard(36);
  // Some points farther away: disparity 80 stands for a distance of 1250.
  for (std::size_t id = 0; id < board.size(); id += 5) {
    points.right_points[id].x = points.left_points[id].x - 80;
    const cv::Point2f ray = points.left_points[id] - cv::Point2f(640, 512);
    board[id] = {ray.x * 1.25F, ray.y * 1.25F, 1250};
  }
  for (std::size_t id = 0; id < board.size(); ++id) {
    if (id % 5 != 0) board[id] = {points.left_points[id].x - 640, points.left_points[id].y - 512, 1000};
  }
  PairEvaluator target = boardEvaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_NEAR(target.figures.space_rms, 0.0, 0.01);
  for (cv::Point3f& point : target.boardPoints) point.x = -point.x;
  ASSERT_EQ(check(target), 0);
  EXPECT_GT(target.figures.space_rms, 1.0);
}

}  // namespace
