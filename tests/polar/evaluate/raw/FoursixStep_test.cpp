#include "polar/evaluate/raw/FoursixStep.h"

#include <gtest/gtest.h>

#include "support/EvaluatorFixture.h"

namespace {

const FoursixRules kBrown = {cv::Point3f(0, 0, 0), 0, false};
const FoursixRules kPoly = {cv::Point3f(10, 10, 10), 30, true};

struct FoursixStep : testing::Test {
  EvaluatorFixture fixture;
  std::vector<cv::Point3f> points_left;

  FoursixStep() {
    PolarConfig& config = fixture.config;
    config.TriPoint1_ID = 10;
    config.TriPoint2_ID = 11;
    config.TriPoint3_ID = 12;
    config.TriPoint4_ID = 13;
    config.TriPoint1_GT = {0, 0, 0};
    config.TriPoint2_GT = {6, 0, 0};
    config.TriPoint3_GT = {0, 8, 0};
    config.TriPoint4_GT = {6, 8, 0};
  }
  void point(std::int32_t id, const cv::Point3f& point_left) {
    fixture.shared(id, {1, 1}, {2, 2});
    points_left.push_back(point_left);
  }
  void rectangle() {
    point(10, {0, 0, 100});
    point(11, {7, 0, 100});
    point(12, {0, 8, 100});
    point(13, {7, 8, 100});
  }
};

TEST_F(FoursixStep, StoresErrorsAndExtremes) {
  point(9, {500, 500, 500});
  rectangle();
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), 0);
  const float diagonal = static_cast<float>(std::sqrt(113.0) - 10.0);
  EXPECT_EQ(evaluator.figures.tri_dis, (std::array<float, 8>{1, 0, 0, 1, diagonal, diagonal, 0, 1}));
}

class FoursixStepMissing : public FoursixStep, public testing::WithParamInterface<int> {};

TEST_P(FoursixStepMissing, FirstMissingPointIsNamedAndNothingStored) {
  for (std::int32_t k = 0; k < GetParam(); ++k) point(10 + k, {7.0F * static_cast<float>(k), 0, 100});
  for (const FoursixRules& rules : {kBrown, kPoly}) {
    PairEvaluator evaluator = fixture.evaluator();
    evaluator.figures.tri_dis[0] = 5.0F;
    EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, rules), -10);
    EXPECT_EQ(evaluator.errorText, "Fail detect foursix method point" + std::to_string(GetParam() + 1));
    EXPECT_EQ(evaluator.figures.tri_dis[0], 5.0F);
  }
}

INSTANTIATE_TEST_SUITE_P(Points, FoursixStepMissing, testing::Values(0, 1, 2, 3));

TEST_F(FoursixStep, PolynomialFormTakesAFailedPointAtTheOriginForFound) {
  rectangle();
  points_left[0] = {0, 0, 0};
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), -10);
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kPoly), 0);
  EXPECT_EQ(evaluator.figures.tri_dis[0], 0.001F);
  EXPECT_EQ(evaluator.figures.tri_dis[2], 0.0F);
  EXPECT_EQ(evaluator.figures.tri_dis[6], 0.0F) << "the extremes are taken after the replacement";
}

TEST_F(FoursixStep, PointOfTheLeftImageOnlyIsMissing) {
  point(10, {0, 0, 100});
  point(11, {7, 0, 100});
  point(12, {0, 8, 100});
  fixture.leftOnly(13, {5, 5});
  points_left.emplace_back(7.0F, 8.0F, 100.0F);
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), -10);
  EXPECT_EQ(evaluator.errorText, "Fail detect foursix method point4");
}

TEST_F(FoursixStep, IdsThatRanAheadOfThePointsAreMissing) {
  fixture.leftOnly(1, {5, 5});
  rectangle();
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), -10);
  EXPECT_EQ(evaluator.errorText, "Fail detect foursix method point4");
}

TEST_F(FoursixStep, IdBehindTheLastPointIsMissingEvenIfTheListOnceHadOneMore) {
  rectangle();
  points_left.pop_back();
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), -10);
  EXPECT_EQ(evaluator.errorText, "Fail detect foursix method point4");
}

TEST_F(FoursixStep, TwoNamesForOnePointHaveDistanceZero) {
  fixture.config.TriPoint2_ID = 10;
  rectangle();
  PairEvaluator evaluator = fixture.evaluator();
  EXPECT_EQ(evaluateFoursix(evaluator, fixture.points, points_left, kBrown), 0);
  EXPECT_EQ(evaluator.figures.tri_dis[0], -6.0F);
}

}  // namespace
