#include "polar/evaluate/PairEvaluator.h"

#include <gtest/gtest.h>

#include "support/EvaluatorFixture.h"

namespace {

TEST(PairEvaluator, TakesFolderAndEccentricityAndStartsUsable) {
  PolarConfig config;
  config.result_folder = "results";
  config.eccentricity = true;
  config.tri_bias_divid = 0.5F;
  PairEvaluator evaluator(std::make_shared<const PolarConfig>(config));
  EXPECT_EQ(evaluator.result_folder, "results");
  EXPECT_TRUE(evaluator.eccentricity);
  EXPECT_EQ(evaluator.usable, 1);
  evaluator.eccentricity = false;
  EXPECT_TRUE(evaluator.config().eccentricity) << "a run cannot change its configuration";
  EXPECT_EQ(evaluator.config().tri_bias_divid, 0.5F);
}

TEST(PairEvaluator, UsableFollowsTheCountOfSharedPoints) {
  PairEvaluator evaluator(std::make_shared<const PolarConfig>());
  MeasuredPair pair;
  pair.left_points.resize(6);
  pair.right_points.resize(5);
  EXPECT_FALSE(evaluator.enoughShared(pair, 6));
  EXPECT_EQ(evaluator.usable, 0);
  pair.right_points.resize(6);
  EXPECT_TRUE(evaluator.enoughShared(pair, 6));
  EXPECT_EQ(evaluator.usable, 1);
}

class PairEvaluatorMeasurementForm : public testing::TestWithParam<std::int32_t> {};

TEST_P(PairEvaluatorMeasurementForm, FollowsTheModel) {
  EvaluatorFixture fixture;
  fixture.shared(3, {1, 2}, {3, 4});
  fixture.measured = -6;
  PairEvaluator evaluator = fixture.evaluator();
  MeasuredPair pair;
  EXPECT_EQ(evaluator.measure({GetParam(), "target", cv::Mat(), cv::Mat()}, pair), -6);
  EXPECT_EQ(fixture.asked_model, GetParam());
  EXPECT_EQ(pair.left_points.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(FullAndDetection, PairEvaluatorMeasurementForm, testing::Values(0, 1));

TEST(PairEvaluator, AnyOtherModelMeasuresNothing) {
  EvaluatorFixture fixture;
  fixture.shared(3, {1, 2}, {3, 4});
  PairEvaluator evaluator = fixture.evaluator();
  MeasuredPair pair;
  EXPECT_EQ(evaluator.measure({2, "target", cv::Mat(), cv::Mat()}, pair), 0);
  EXPECT_EQ(fixture.measurements, 0);
  EXPECT_TRUE(pair.left_points.empty());
}

}  // namespace
