#include <gtest/gtest.h>

#include <limits>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include "support/EvaluatorFixture.h"

namespace {

const cv::Vec3b kRed(0, 0, 255);
const cv::Vec3b kGreen(0, 255, 0);
const cv::Vec3b kBlack(0, 0, 0);

struct RowDisparity : public ::testing::Test, public EvaluatorFixture {
  float variance_x = -1.0F;
  float variance_y = -1.0F;
  cv::Mat left = cv::Mat::zeros(240, 200, CV_8UC3);

  PairStatus check(PairEvaluator& target, std::int32_t evalu_model = 0) {
    return target.CheckRowDisparity({evalu_model, "", left, left}, variance_x, variance_y);
  }
  /// Row differences 0.25, -0.5 and 0.75, column differences 1, -2 and 6.
  void threePoints() {
    shared(4, {50, 50}, {49, 49.75F});
    shared(6, {100, 150}, {102, 150.5F});
    shared(9, {160, 20}, {154, 19.25F});
  }
  cv::Mat savedPicture() const { return cv::imread(folder.file("0_left_dy.png"), cv::IMREAD_UNCHANGED); }
};

TEST_F(RowDisparity, ThreePointsByHand) {
  threePoints();
  config.dy_bias_divid = 0.5F;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.dy_means, 0.5F);
  EXPECT_EQ(target.figures.dy_variance, 0.125F / 3.0F);
  EXPECT_EQ(target.figures.dy_min, 0.25F);
  EXPECT_EQ(target.figures.dy_max, 0.75F);
  EXPECT_EQ(target.figures.dy_ratio, 1.0F / 3.0F);  // 0.5 equals the limit and is not over it.
  EXPECT_EQ(variance_x, 14.0F / 3.0F);
  EXPECT_EQ(variance_y, 0.125F / 3.0F);
  EXPECT_EQ(target.usable, 1);
}

TEST_F(RowDisparity, EqualErrorsOfOppositeSignDoNotCancel) {
  shared(0, {10, 12}, {10, 10});
  shared(1, {20, 10}, {20, 12});
  shared(2, {30, 12}, {30, 10});
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.dy_means, 2.0F);
  EXPECT_EQ(target.figures.dy_variance, 0.0F);
}

TEST_F(RowDisparity, FiguresAreSummedInSinglePrecision) {
  shared(0, {0, 16777216}, {0, 0});
  shared(1, {0, 1}, {0, 0});
  shared(2, {0, 1}, {0, 0});
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.dy_means, 16777216.0F / 3.0F);
}

TEST_F(RowDisparity, LargestOfAPairWithoutDifferencesIsTheSmallestNormalNumber) {
  for (std::int32_t id = 0; id < 3; ++id) shared(id, {10, 10}, {5, 10});
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.dy_min, 0.0F);
  EXPECT_EQ(target.figures.dy_max, std::numeric_limits<float>::min());
}

TEST_F(RowDisparity, TwoSharedPointsAreTooFewAndChangeNoFigure) {
  threePoints();
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  points = {};
  shared(1, {10, 10}, {10, 5});
  shared(2, {20, 10}, {20, 5});
  EXPECT_EQ(check(target), -9);
  EXPECT_EQ(target.usable, 0);
  EXPECT_EQ(target.figures.dy_means, 0.5F);
  EXPECT_EQ(variance_x, 14.0F / 3.0F);
}

TEST_F(RowDisparity, FailedMeasurementGivesOneWhateverItsStatusWas) {
  for (const PairStatus status : {-5, -6, -8}) {
    points = {};
    threePoints();
    measured = status;
    PairEvaluator target = evaluator();
    target.figures.dy_means = 7.0F;
    EXPECT_EQ(check(target), 1);
    EXPECT_EQ(target.figures.dy_means, 7.0F);
    EXPECT_EQ(target.usable, 1);
    EXPECT_EQ(variance_x, -1.0F);
  }
}

TEST_F(RowDisparity, UnknownModelMeasuresNothing) {
  threePoints();
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target, 2), -9);
  EXPECT_EQ(measurements, 0);
}

TEST_F(RowDisparity, TableHasIdAndUnsignedDifferenceWithoutHeader) {
  threePoints();
  shared(12, {10, 10}, {10, 9.8765432F});
  config.dy_bias_savecsv_swithch = 1;
  folder.write("0_left_dy.csv", "what an earlier run left here, longer than all of the new rows together\n");
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  EXPECT_EQ(folder.read("0_left_dy.csv"), "4,0.25\n6,0.5\n9,0.75\n12,0.123457\n");
  EXPECT_FALSE(folder.has("0_left_dy.png"));
}

TEST_F(RowDisparity, FilesBearTheNumberOfThePair) {
  threePoints();
  config.dy_bias_savecsv_swithch = 1;
  config.dy_bias_savepng_swithch = 1;
  PairEvaluator target = evaluator();
  target.image_id = 12;
  ASSERT_EQ(check(target), 0);
  EXPECT_TRUE(folder.has("12_left_dy.csv"));
  EXPECT_TRUE(folder.has("12_left_dy.png"));
}

TEST_F(RowDisparity, DetectionKeepsUnpairedIdsSoTheIdsRunAhead) {
  leftOnly(1, {1, 1});
  threePoints();
  leftOnly(5, {5, 5});
  config.dy_bias_savecsv_swithch = 1;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target, 1), 0);
  EXPECT_EQ(asked_model, 1);
  EXPECT_EQ(folder.read("0_left_dy.csv"), "1,0.25\n4,0.5\n5,0.75\n");
}

struct SwitchCase {
  std::int32_t value;
  bool with_folder;
};
class RowDisparityNothingToWrite : public RowDisparity, public ::testing::WithParamInterface<SwitchCase> {};

TEST_P(RowDisparityNothingToWrite, LeavesTheFolderEmpty) {
  threePoints();
  config.dy_bias_savecsv_swithch = GetParam().value;
  config.dy_bias_savepng_swithch = GetParam().value;
  if (!GetParam().with_folder) config.result_folder.clear();
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

INSTANTIATE_TEST_SUITE_P(Switches, RowDisparityNothingToWrite,
                         ::testing::Values(SwitchCase{0, true}, SwitchCase{2, true}, SwitchCase{1, false}));

TEST_F(RowDisparity, ATableThatWillNotOpenIsNoError) {
  threePoints();
  config.dy_bias_savecsv_swithch = 1;
  config.result_folder = folder.file("missing");
  PairEvaluator target = evaluator();
  EXPECT_EQ(check(target), 0);
  EXPECT_EQ(target.figures.dy_means, 0.5F);
}

TEST_F(RowDisparity, ArrowsHaveTheSignOfTheDifference) {
  threePoints();
  config.dy_bias_divid = 0.5F;
  config.dy_bias_savepng_swithch = 1;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  const cv::Mat picture = savedPicture();
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(picture.at<cv::Vec3b>(90, 50), kGreen);  // Down from row 50 to 125, below the limit.
  EXPECT_EQ(picture.at<cv::Vec3b>(40, 50), kBlack);
  EXPECT_EQ(picture.at<cv::Vec3b>(110, 100), kRed);  // Up from row 150 to 0, equal to the limit.
  EXPECT_EQ(picture.at<cv::Vec3b>(170, 100), kBlack);
  EXPECT_EQ(picture.at<cv::Vec3b>(100, 160), kRed);  // Down from row 20 to 245, above the limit.
  EXPECT_EQ(cv::norm(left, cv::NORM_INF), 0.0);      // The image itself stays clean.
}

TEST_F(RowDisparity, PlacesAreRoundedToEven) {
  shared(0, {50.5F, 40}, {50, 39.875F});      // 40 + 37.5
  shared(1, {101.5F, 150}, {100, 150.125F});  // 150 - 37.5
  shared(2, {150, 60.5F}, {150, 60.5F});
  config.dy_bias_divid = 0.125F;
  config.dy_bias_savepng_swithch = 1;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  cv::Mat expected = cv::Mat::zeros(left.size(), CV_8UC3);
  const cv::Scalar red(0, 0, 255);
  cv::circle(expected, {50, 40}, 2, red);
  cv::arrowedLine(expected, {50, 40}, {50, 78}, red, 3, 8, 0, 0.3);
  cv::circle(expected, {102, 150}, 2, red);
  cv::arrowedLine(expected, {102, 150}, {102, 112}, red, 3, 8, 0, 0.3);
  cv::circle(expected, {150, 60}, 2, red);
  cv::arrowedLine(expected, {150, 60}, {150, 60}, cv::Scalar(0, 255, 0), 3, 8, 0, 0.3);
  EXPECT_EQ(cv::norm(savedPicture(), expected, cv::NORM_INF), 0.0);
}

TEST_F(RowDisparity, GreyImagesAreDrawnOnAsTheyStand) {
  threePoints();
  left = cv::Mat(240, 200, CV_8UC1, cv::Scalar(90));
  config.dy_bias_savepng_swithch = 1;
  PairEvaluator target = evaluator();
  ASSERT_EQ(check(target), 0);
  const cv::Mat picture = savedPicture();
  ASSERT_EQ(picture.type(), CV_8UC1);
  EXPECT_EQ(picture.at<std::uint8_t>(90, 50), 0);
  EXPECT_EQ(picture.at<std::uint8_t>(90, 80), 90);
}

}  // namespace
