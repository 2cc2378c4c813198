#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <opencv2/imgcodecs.hpp>

#include "support/EvaluatorFixture.h"

namespace {

struct ResidualStep : testing::Test {
  EvaluatorFixture fixture;
  cv::Mat image = cv::Mat(120, 160, CV_8UC1, cv::Scalar(90));
  std::vector<cv::Point2f> measured;
  std::vector<cv::Point2f> predicted;
  std::vector<float> errors;

  /// A point whose prediction lies off by (dx, dy).
  void point(float dx, float dy) {
    const cv::Point2f m(40.0F + 10.0F * static_cast<float>(measured.size()), 50.0F);
    measured.push_back(m);
    predicted.emplace_back(m.x - dx, m.y - dy);
  }
  PairEvaluator ready() {
    PairEvaluator evaluator = fixture.evaluator();
    evaluator.image_id = 7;
    return evaluator;
  }
};

TEST_F(ResidualStep, FiveFiguresByHand) {
  point(0.75F, 1.0F);   // 1.25
  point(-0.25F, 0.0F);  // 0.25
  point(0.0F, -0.5F);   // 0.5
  fixture.config.tri_bias_divid = 0.5F;
  PairEvaluator evaluator = ready();
  ASSERT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(errors, (std::vector<float>{1.25F, 0.25F, 0.5F}));
  EXPECT_FLOAT_EQ(evaluator.figures.tri_mean, 2.0F / 3.0F);
  EXPECT_EQ(evaluator.figures.tri_min, 0.25F);
  EXPECT_EQ(evaluator.figures.tri_max, 1.25F);
  EXPECT_FLOAT_EQ(evaluator.figures.tri_rms, static_cast<float>(std::sqrt((1.5625 + 0.0625 + 0.25) / 3.0)));
  EXPECT_FLOAT_EQ(evaluator.figures.tri_ratio, 1.0F / 3.0F) << "an error at the limit is not below it";
}

TEST_F(ResidualStep, ZeroPredictionIsSkippedAndItsErrorStaysZero) {
  point(0.25F, 0.0F);
  point(0.5F, 0.0F);
  point(0.75F, 0.0F);
  predicted[1] = {0.0F, 0.0F};
  errors = {9.0F};
  PairEvaluator evaluator = ready();
  ASSERT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(errors, (std::vector<float>{0.25F, 0.0F, 0.75F}));
  EXPECT_EQ(evaluator.figures.tri_mean, 0.5F);
}

TEST_F(ResidualStep, ErrorAboveFivePixelsIsKeptInTheListOnly) {
  point(3.0F, 4.0F);  // exactly 5: counts
  point(6.0F, 8.0F);  // 10: an outlier
  point(0.0F, 1.0F);
  fixture.config.tri_bias_divid = 100.0F;
  PairEvaluator evaluator = ready();
  ASSERT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(errors, (std::vector<float>{5.0F, 10.0F, 1.0F}));
  EXPECT_EQ(evaluator.figures.tri_mean, 3.0F);
  EXPECT_EQ(evaluator.figures.tri_max, 5.0F);
  EXPECT_EQ(evaluator.figures.tri_ratio, 1.0F);
}

TEST_F(ResidualStep, NothingKeptFailsAndLeavesTheFigures) {
  for (int k = 0; k < 3; ++k) point(60.0F, 0.0F);
  predicted[0] = {0.0F, 0.0F};
  PairEvaluator evaluator = ready();
  evaluator.figures.tri_mean = 0.125F;
  evaluator.figures.tri_ratio = 0.5F;
  EXPECT_FALSE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(errors, (std::vector<float>{0.0F, 60.0F, 60.0F}));
  EXPECT_EQ(evaluator.figures.tri_mean, 0.125F);
  EXPECT_EQ(evaluator.figures.tri_ratio, 0.5F);
}

TEST_F(ResidualStep, TwoPointsAreTooFew) {
  point(0.25F, 0.0F);
  point(0.25F, 0.0F);
  EXPECT_FALSE(ready().CheckResidual(image, measured, predicted, errors));
  point(0.25F, 0.0F);
  EXPECT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
}

TEST_F(ResidualStep, ListsOfDifferentLengthFail) {
  for (int k = 0; k < 4; ++k) point(0.25F, 0.0F);
  predicted.pop_back();
  EXPECT_FALSE(ready().CheckResidual(image, measured, predicted, errors));
}

TEST_F(ResidualStep, PredictionThatIsNoNumberDoesNoHarm) {
  for (int k = 0; k < 4; ++k) point(0.25F, 0.0F);
  predicted[2].x = std::numeric_limits<float>::quiet_NaN();
  PairEvaluator evaluator = ready();
  EXPECT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(evaluator.figures.tri_min, 0.25F);
  EXPECT_TRUE(std::isnan(evaluator.figures.tri_mean));
}

TEST_F(ResidualStep, TableHoldsKeptErrorsWithoutHeader) {
  point(0.75F, 1.0F);
  point(6.0F, 8.0F);
  point(0.0F, 0.0078125F);
  point(1.0F, 1.0F);
  fixture.config.tir_bias_savecsv_swithch = 1;
  ASSERT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(fixture.folder.read("7_right_tri.csv"), "1.25\n0.0078125\n1.41421\n");
  EXPECT_FALSE(fixture.folder.has("7_right_tri.png"));
}

TEST_F(ResidualStep, SavedPictureIsClean) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  fixture.config.tri_bias_savepng_swithch = 1;
  ASSERT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
  const cv::Mat picture = cv::imread(fixture.folder.file("7_right_tri.png"), cv::IMREAD_UNCHANGED);
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(cv::countNonZero(picture.reshape(1) != 90), 0);
  EXPECT_FALSE(fixture.folder.has("7_right_tri.csv"));
}

TEST_F(ResidualStep, PictureIsWrittenAlsoWhereNothingIsKept) {
  for (int k = 0; k < 3; ++k) point(60.0F, 0.0F);
  fixture.config.tri_bias_savepng_swithch = 1;
  EXPECT_FALSE(ready().CheckResidual(image, measured, predicted, errors));
  EXPECT_TRUE(fixture.folder.has("7_right_tri.png"));
}

TEST_F(ResidualStep, AnySwitchValueButOneSavesNothing) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  fixture.config.tri_bias_savepng_swithch = 2;
  fixture.config.tir_bias_savecsv_swithch = 2;
  ASSERT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
  EXPECT_TRUE(std::filesystem::is_empty(fixture.folder.path()));
}

TEST_F(ResidualStep, WithoutResultFolderNothingIsWritten) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  fixture.config.tri_bias_savepng_swithch = 1;
  fixture.config.tir_bias_savecsv_swithch = 1;
  fixture.config.result_folder.clear();
  EXPECT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
}

TEST_F(ResidualStep, ColourImageEndsInTheLibrarysException) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  PairEvaluator evaluator = ready();
  image = cv::Mat::zeros(20, 20, CV_8UC3);
  EXPECT_THROW(evaluator.CheckResidual(image, measured, predicted, errors), cv::Exception);
}

TEST_F(ResidualStep, FivePixelsAreComparedBeforeNarrowing) {
  // sqrt(9.0000014 + 16) is 5.00000014, which is 5 in single precision.
  measured = {{std::nextafter(3.0F, 4.0F), 4.0F}};
  predicted = {{0.0F, std::numeric_limits<float>::denorm_min()}};
  point(0.25F, 0.0F);
  point(0.25F, 0.0F);
  PairEvaluator evaluator = ready();
  ASSERT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(errors[0], 5.0F);
  EXPECT_EQ(evaluator.figures.tri_max, 0.25F);
}

TEST_F(ResidualStep, DifferencesAreTakenInSinglePrecision) {
  // 4.0999999 - 0.3000000 is 3.79999989, and 3.8F, 3.79999995, in single precision: then it is not below 3.8F.
  measured = {{4.1F, 9.0F}, {4.1F, 9.0F}, {4.1F, 9.0F}};
  predicted = {{0.3F, 9.0F}, {0.3F, 9.0F}, {0.3F, 9.0F}};
  fixture.config.tri_bias_divid = 3.8F;
  PairEvaluator evaluator = ready();
  ASSERT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_LT(4.1F - static_cast<double>(0.3F), 3.8F);
  EXPECT_EQ(evaluator.figures.tri_ratio, 0.0F);
}

TEST_F(ResidualStep, TableOfAnEarlierRunIsReplaced) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  fixture.config.tir_bias_savecsv_swithch = 1;
  fixture.folder.write("7_right_tri.csv", "what an earlier run left here, longer than the new rows\n");
  ASSERT_TRUE(ready().CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(fixture.folder.read("7_right_tri.csv"), "0.5\n0.5\n0.5\n");
}

TEST_F(ResidualStep, FilesThatWillNotOpenAreNoError) {
  for (int k = 0; k < 3; ++k) point(0.5F, 0.0F);
  fixture.config.tir_bias_savecsv_swithch = 1;
  fixture.config.tri_bias_savepng_swithch = 1;
  fixture.config.result_folder = fixture.folder.file("missing");
  PairEvaluator evaluator = ready();
  EXPECT_TRUE(evaluator.CheckResidual(image, measured, predicted, errors));
  EXPECT_EQ(evaluator.figures.tri_mean, 0.5F);
}

}  // namespace
