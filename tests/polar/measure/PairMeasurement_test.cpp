#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include "Tallowfen/src/RingTarget.h"
#include "polar/measure/EccentricityCompensation.h"
#include "support/HiddenDot.h"
#include "support/MeasurementFixture.h"

namespace {

struct PairMeasurement : testing::Test, MeasurementFixture {
  PairStatus measure(PairEvaluator& evaluator) { return evaluator.MeasurePairPoints(input(), pair); }
};

TEST_F(PairMeasurement, EveryPairOfPointsBelongsToOneDot) {
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  ASSERT_GT(pair.left_points.size(), rendered.truth().dots.size() / 2);
  ASSERT_EQ(pair.left_by_id.size(), pair.left_points.size());
  ASSERT_EQ(pair.right_by_id.size(), pair.right_points.size());
  std::size_t k = 0;
  for (const auto& [id, pixel_left] : pair.left_by_id) {
    const scene::DotTruth& dot = rendered.truth().dots.at(static_cast<std::size_t>(id));
    EXPECT_NEAR(pixel_left.x, dot.ellipse_left.centre.x, 0.5);
    EXPECT_NEAR(pixel_left.y, dot.ellipse_left.centre.y, 0.5);
    EXPECT_NEAR(pair.right_points[k].x, dot.ellipse_right.centre.x, 0.5);
    EXPECT_NEAR(pair.right_points[k].y, dot.ellipse_right.centre.y, 0.5);
    EXPECT_EQ(pair.left_points[k], pixel_left);
    EXPECT_EQ(pair.right_points[k], pair.right_by_id.at(id));
    ++k;
  }
  const std::string count = "detect point num : " + std::to_string(pair.left_points.size()) + "\n";
  EXPECT_NE(console.out().find(count + count), std::string::npos);
}

TEST_F(PairMeasurement, WithoutEccentricityThePoseReportStays) {
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.figures.PoseReport.fill(3.5F);
  cameras.left_K = cv::Mat();  // the pose could not even be asked for
  ASSERT_EQ(measure(evaluator), 0);
  EXPECT_EQ(evaluator.figures.PoseReport[0], 3.5F);
  EXPECT_EQ(evaluator.figures.PoseReport[7], 3.5F);
  EXPECT_EQ(console.out().find("ir_left_rx: "), std::string::npos);
  EXPECT_EQ(console.out().find("use eccentricity!"), std::string::npos);
}

TEST_F(PairMeasurement, EccentricityReportsBothPoses) {
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.eccentricity = true;
  ASSERT_EQ(measure(evaluator), 0);
  const scene::Pose left_pose = rendered.truth().left_from_board;
  const scene::Pose right_pose = scene::rightFromBoard(rendered.scene().rig, left_pose);
  const scene::Board& board = rendered.scene().board;
  const scene::Point3 middle{(board.cols - 1) / 2 * board.step, (board.rows - 1) / 2 * scene::rowStep(board), 0};
  for (std::size_t side = 0; side < 2; ++side) {
    const scene::Pose& truth = side == 0 ? left_pose : right_pose;
    cv::Vec3d rvec;
    cv::Rodrigues(cv::Matx33d(truth.rotation.values.data()), rvec);
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(evaluator.figures.PoseReport.at(4 * side + static_cast<std::size_t>(k)), rvec[k] * 180.0 / CV_PI,
                  1.0);
    }
    EXPECT_NEAR(evaluator.figures.PoseReport.at(4 * side + 3), scene::norm(scene::transformed(truth, middle)), 2.0);
  }
  std::size_t last = 0;
  for (const char* label :
       {"use eccentricity!\nir_left_rx: ", "\nir_left_ry: ", "\nir_left_rz: ", "\nir_left_dis: ",
        "use eccentricity!\nir_right_rx: ", "\nir_right_ry: ", "\nir_right_rz: ", "\nir_right_dis: "}) {
    const std::size_t place = console.out().find(label);
    ASSERT_NE(place, std::string::npos) << label;
    EXPECT_GE(place, last);
    last = place;
  }
}

TEST_F(PairMeasurement, EccentricityReplacesEachCentreByThatOfItsEdge) {
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.eccentricity = true;
  ASSERT_EQ(measure(evaluator), 0);
  kestrune::RingTarget target;
  target.loadConfig(rendered.target());
  kestrune::RingTarget::Points points, unidentified;
  target.detect(left, points, unidentified, cv::Mat());
  constexpr double kRadians = CV_PI / 180.0;
  cv::Matx33d R;
  cv::Rodrigues(cv::Vec3d(evaluator.figures.PoseReport[0] * kRadians, evaluator.figures.PoseReport[1] * kRadians,
                          evaluator.figures.PoseReport[2] * kRadians),
                R);
  std::size_t compared = 0;
  for (const auto& point : points) {
    const auto found = pair.left_by_id.find(point.id);
    if (found == pair.left_by_id.end()) continue;
    const cv::Point2f expected = compensatedCentre(point.edge_points, cv::Matx33d(cameras.left_K), R);
    EXPECT_NEAR(found->second.x, expected.x, 0.01);
    EXPECT_NEAR(found->second.y, expected.y, 0.01);
    ++compared;
  }
  EXPECT_GT(compared, 50u);
  // The edges are drawn: green on the left half of the canvas, blue on the right one.
  const cv::Mat& canvas = evaluator.figures.detect_canvas;
  cv::Mat green, blue;
  cv::inRange(canvas, cv::Scalar(0, 255, 0), cv::Scalar(0, 255, 0), green);
  cv::inRange(canvas, cv::Scalar(255, 0, 0), cv::Scalar(255, 0, 0), blue);
  EXPECT_GT(cv::countNonZero(green), 0);
  EXPECT_GT(cv::countNonZero(blue), 0);
}

TEST_F(PairMeasurement, PointOfOneImageIsDrawnButEntersNothing) {
  config.TriPoint1_ID = 0;
  config.TriPoint2_ID = config.TriPoint3_ID = config.TriPoint4_ID = -7;
  hideDot(right, rendered.truth().dots[0].ellipse_right);
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  EXPECT_EQ(pair.left_by_id.count(0), 0u);
  EXPECT_EQ(pair.right_by_id.count(0), 0u);
  EXPECT_EQ(pair.left_points.size(), pair.right_points.size());
  const cv::Mat& canvas = evaluator.figures.detect_canvas;
  ASSERT_EQ(canvas.size(), cv::Size(2 * left.cols, left.rows));
  cv::Mat red;
  cv::inRange(canvas, cv::Scalar(0, 0, 255), cv::Scalar(0, 0, 255), red);
  EXPECT_GT(cv::countNonZero(red.colRange(0, left.cols)), 10);
  EXPECT_EQ(cv::countNonZero(red.colRange(left.cols + left.cols / 2, 2 * left.cols)), 0);
}

TEST_F(PairMeasurement, SixteenBitImagesAreStretchedOneByOne) {
  left.convertTo(left, CV_16U, 4.0);
  right.convertTo(right, CV_16U, 60.0);
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  EXPECT_GT(pair.left_points.size(), rendered.truth().dots.size() / 2);
  // On the canvas both share one stretch: the left half is nearly black.
  double darkest = 0, brightest = 0;
  cv::minMaxIdx(evaluator.figures.detect_canvas.colRange(left.cols, 2 * left.cols).clone().reshape(1), &darkest,
                &brightest);
  EXPECT_EQ(brightest, 255);
  // Id marks are red; green and blue carry the picture alone.
  std::vector<cv::Mat> planes;
  cv::split(evaluator.figures.detect_canvas.colRange(0, left.cols), planes);
  cv::minMaxIdx(planes[1], &darkest, &brightest);
  EXPECT_LT(brightest, 20);
}

TEST_F(PairMeasurement, ColourImagesAreMeasuredToo) {
  cv::cvtColor(left, left, cv::COLOR_GRAY2BGR);
  cv::cvtColor(right, right, cv::COLOR_GRAY2BGR);
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  EXPECT_GT(pair.left_points.size(), rendered.truth().dots.size() / 2);
}

TEST_F(PairMeasurement, ImageWithoutBoardHasTooFewPointsAndNoText) {
  right.setTo(cv::Scalar(128));
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_EQ(measure(evaluator), -6);
  EXPECT_EQ(evaluator.errorText, "");
  EXPECT_TRUE(evaluator.figures.detect_canvas.empty());
  EXPECT_NE(console.out().find("detect point num : 0\n"), std::string::npos);
}

TEST_F(PairMeasurement, EmptyImageIsAFailureOfEitherSide) {
  PairEvaluator evaluator = rendered.evaluator(config);
  right = cv::Mat();
  EXPECT_EQ(measure(evaluator), -8);
  EXPECT_EQ(evaluator.errorText, " Load Polar imagge fail!");
  EXPECT_NE(console.out().find("detect point num : "), std::string::npos) << "the left image comes first";
  evaluator.errorText.clear();
  std::swap(left, right);
  EXPECT_EQ(measure(evaluator), -8);
  EXPECT_EQ(evaluator.errorText, " Load Polar imagge fail!");
}

TEST_F(PairMeasurement, ImagesOfDifferentSizeEndInTheLibrarysException) {
  right = right(cv::Rect(0, 0, right.cols - 10, right.rows)).clone();
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_THROW(measure(evaluator), cv::Exception);
}

TEST_F(PairMeasurement, TargetThatCannotBeInitialised) {
  PairEvaluator evaluator = rendered.evaluator(config);
  EXPECT_EQ(evaluator.MeasurePairPoints(input(""), pair), -5);
  EXPECT_EQ(evaluator.errorText, " Fail init camera model! ");
}

TEST_F(PairMeasurement, MoreThanSixBoardPointsReachTheTarget) {
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.boardPoints.resize(6);
  right = cv::Mat();
  measure(evaluator);
  EXPECT_NE(console.out().find("Calibration board Normal mode"), std::string::npos);
  const scene::Board& board = rendered.scene().board;
  evaluator.boardPoints.resize(static_cast<std::size_t>(board.rows * board.cols));
  measure(evaluator);
  EXPECT_NE(console.out().find("Calibration board GT mode"), std::string::npos);
}

TEST_F(PairMeasurement, ListsAreAppendedTo) {
  pair.left_points = {{1, 2}};
  pair.right_points = {{3, 4}};
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  EXPECT_EQ(pair.left_points.front(), cv::Point2f(1, 2));
  EXPECT_EQ(pair.left_points.size(), pair.left_by_id.size() + 1);
}

/// A board told two columns too narrow: the dots beyond it get the ids of dots in the rows beside.
TEST_F(PairMeasurement, FirstDetectedPointOfAnIdStays) {
  const int cols = rendered.scene().board.cols;
  const std::string target = scene::targetIni(rendered.scene()) + "\ncols: " + std::to_string(cols - 2) + "\n";
  kestrune::RingTarget ring_target;
  ASSERT_TRUE(ring_target.loadConfig(target));
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  ASSERT_TRUE(ring_target.detect(left, points, unidentified, cv::Mat()));
  PointsById first;
  std::size_t repeated = 0;
  for (const auto& point : points)
    repeated += first.try_emplace(point.id, static_cast<float>(point.x), static_cast<float>(point.y)).second ? 0 : 1;
  ASSERT_GT(repeated, 10U);

  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(evaluator.MeasurePairPoints(input(target), pair), 0);
  for (const auto& [id, pixel_left] : pair.left_by_id) EXPECT_EQ(pixel_left, first.at(id)) << id;
  MeasuredPair detected;
  ASSERT_EQ(evaluator.DetectPairPoints(input(target), detected), 0);
  EXPECT_EQ(detected.left_by_id, first);
}

TEST_F(PairMeasurement, SixDetectedPointsAreEnough) {
  const RenderedPair& dots = RenderedPair::bigDots();
  PairEvaluator evaluator = dots.evaluator(config);
  const auto statusOf = [&](const char* ids) {
    pair = {};
    const std::string target = scene::targetIni(dots.scene()) + "\ndetection_switch: 1\ndetection_id: " + ids + "\n";
    return evaluator.MeasurePairPoints({0, target.c_str(), dots.left(), dots.right()}, pair);
  };
  EXPECT_EQ(statusOf("[1,2,3,4,5]"), -6);
  EXPECT_NE(console.out().find("detect point num : 5\n"), std::string::npos);
  EXPECT_EQ(statusOf("[1,2,3,4,5,6]"), 0);
  EXPECT_EQ(pair.left_points.size(), 6U);
}

TEST_F(PairMeasurement, SixBoardPointsDoNotReachTheTargetAndSevenDo) {
  PairEvaluator evaluator = rendered.evaluator(config);
  left = cv::Mat();
  const auto modeOf = [&](const std::string& board, std::size_t count) {
    evaluator.boardPoints.resize(count);
    const std::size_t before = console.out().size();
    const std::string target = board + "\nboard_type: 2\nstep: 20\n";
    evaluator.MeasurePairPoints(input(target), pair);
    const std::string printed = console.out().substr(before);
    return printed.substr(0, printed.find('\n'));
  };
  EXPECT_EQ(modeOf("rows: 2\ncols: 3", 6), "Calibration board Normal mode");
  EXPECT_EQ(modeOf("rows: 1\ncols: 7", 7), "Calibration board GT mode");
}

/// Each coefficient alone bends the picture in its own way, so that a wrong place of one shows in the pose.
TEST_F(PairMeasurement, PoseIsTakenThroughTheLensOfEachSide) {
  PairEvaluator evaluator = rendered.evaluator(config);
  evaluator.eccentricity = true;
  const auto bend = [](CameraFloats& lens, float k) {
    lens = {lens.fx, lens.fy, lens.cx, lens.cy, k, 2 * k, 3 * k, 4 * k, 5 * k, 6 * k, 7 * k, 8 * k};
  };
  bend(evaluator.left_dist, 0.01F);
  bend(evaluator.right_dist, -0.008F);
  cameras.right_K.at<double>(0, 2) += 7.0;
  ASSERT_EQ(measure(evaluator), 0);

  kestrune::RingTarget target;
  target.loadConfig(rendered.target());
  const scene::Board& board = rendered.scene().board;
  for (std::size_t side = 0; side < 2; ++side) {
    kestrune::RingTarget::Points points, unidentified;
    target.detect(side == 0 ? left : right, points, unidentified, cv::Mat());
    std::vector<cv::Point3f> points_board;
    std::vector<cv::Point2f> pixels;
    for (const auto& point : points) {
      points_board.emplace_back(static_cast<float>(point.id % board.cols * board.step),
                                static_cast<float>(point.id / board.cols * scene::rowStep(board)), 0.0F);
      pixels.emplace_back(static_cast<float>(point.x), static_cast<float>(point.y));
    }
    const CameraFloats& lens = side == 0 ? evaluator.left_dist : evaluator.right_dist;
    // k1, k2, p1, p2, k3 to k6.
    const std::vector<double> coefficients = {lens.k1, lens.k2, lens.p1, lens.p2, lens.k3, lens.k4, lens.k5, lens.k6};
    cv::Vec3d rvec, tvec;
    cv::solvePnP(points_board, pixels, side == 0 ? cameras.left_K : cameras.right_K, coefficients, rvec, tvec);
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(evaluator.figures.PoseReport.at(4 * side + static_cast<std::size_t>(k)), rvec[k] * 180.0 / CV_PI,
                  1e-4);
    }
  }
}

class PairMeasurementChosenPoint : public PairMeasurement, public testing::WithParamInterface<int> {};

TEST_P(PairMeasurementChosenPoint, IsMarkedInBothHalves) {
  const std::array<std::int32_t*, 4> ids = {&config.TriPoint1_ID, &config.TriPoint2_ID, &config.TriPoint3_ID,
                                            &config.TriPoint4_ID};
  for (std::int32_t* id : ids) *id = -7;
  *ids.at(static_cast<std::size_t>(GetParam())) = 40;
  PairEvaluator evaluator = rendered.evaluator(config);
  ASSERT_EQ(measure(evaluator), 0);
  const scene::DotTruth& dot = rendered.truth().dots.at(40);
  const auto redAround = [&](const scene::Point2& centre, int shift) {
    const cv::Point place(cvRound(centre.x) + shift, cvRound(centre.y));
    cv::Mat red;
    cv::inRange(evaluator.figures.detect_canvas(cv::Rect(place.x - 4, place.y - 4, 9, 9)), cv::Scalar(0, 0, 255),
                cv::Scalar(0, 0, 255), red);
    return cv::countNonZero(red);
  };
  EXPECT_GE(redAround(dot.ellipse_left.centre, 0), 8);
  EXPECT_GE(redAround(dot.ellipse_right.centre, left.cols), 8);
  EXPECT_EQ(redAround(rendered.truth().dots.at(100).ellipse_left.centre, 0), 0);
}

INSTANTIATE_TEST_SUITE_P(Keys, PairMeasurementChosenPoint, testing::Values(0, 1, 2, 3));

}  // namespace
