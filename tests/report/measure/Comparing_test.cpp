#include "report/measure/Comparing.h"

#include <gtest/gtest.h>

#include <cmath>

#include "MadeDocument.h"

namespace polarline {
namespace {

using Judged = Difference::Judged;
using made_document::summary;

struct Compared {
  double mean;
  double sd_mean;
  Judged judged;
};

class ComparingJudges : public ::testing::TestWithParam<Compared> {};

/// The first check has 1 ± 0.3; with another 0.4 the standard deviation of a difference is 0.5.
TEST_P(ComparingJudges, ByTwiceTheDeviation) {
  Check first = made_document::check();
  Check other = first;
  first.summary = {summary("dy_means", 1.0, 0.3)};
  other.summary = {summary("dy_means", GetParam().mean, GetParam().sd_mean)};
  const std::vector<ComparedFigure> figures = compareFigures({&first, &other});
  ASSERT_EQ(figures.size(), 1U);
  const Difference& difference = figures[0].differences[1];
  EXPECT_DOUBLE_EQ(difference.value, GetParam().mean - 1.0);
  EXPECT_EQ(difference.judged, GetParam().judged);
  if (std::isfinite(GetParam().sd_mean)) {
    EXPECT_DOUBLE_EQ(difference.sd, 0.5);
  }
  EXPECT_EQ(figures[0].differences[0].judged, Judged::kNone) << "of the first against itself";
}

INSTANTIATE_TEST_SUITE_P(All, ComparingJudges,
                         ::testing::Values(Compared{2.0, 0.4, Judged::kNone}, Compared{2.01, 0.4, Judged::kMore},
                                           Compared{0.0, 0.4, Judged::kNone}, Compared{-0.01, 0.4, Judged::kLess},
                                           Compared{5.0, NAN, Judged::kUnknown}, Compared{1.0, NAN, Judged::kNone}));

/// Two pairs whose figures have 0.3 and 0.4: their mean has half of 0.5.
Check ofTwoPairs(double mean) {
  Check check = made_document::check();
  check.pairs = {made_document::pair(0, mean), made_document::pair(1, mean)};
  check.pairs[0].uncertainty = {{"dy_means", 0.3, NAN, NAN}};
  check.pairs[1].uncertainty = {{"dy_means", 0.4, NAN, NAN}};
  check.summary = {summary("dy_means", mean, NAN)};
  check.summary[0].count = 2;
  return check;
}

TEST(ComparingFewPairs, AreJudgedByTheirDots) {
  const Check first = ofTwoPairs(1.0);
  const Check other = ofTwoPairs(2.0);
  const Difference difference = compareFigures({&first, &other})[0].differences[1];
  EXPECT_EQ(difference.basis, Difference::Basis::kDots);
  EXPECT_NEAR(difference.sd, 0.25 * std::sqrt(2.0), 1e-12);
  EXPECT_EQ(difference.judged, Judged::kMore);
}

TEST(ComparingFewPairs, AgainstManyAreStillJudgedByTheirDots) {
  Check first = made_document::check();
  first.summary = {summary("dy_means", 1.0, 0.3)};
  const Check other = ofTwoPairs(1.5);
  const Difference difference = compareFigures({&first, &other})[0].differences[1];
  EXPECT_EQ(difference.basis, Difference::Basis::kDots);
  EXPECT_DOUBLE_EQ(difference.sd, std::hypot(0.3, 0.25));
  EXPECT_EQ(difference.judged, Judged::kNone);
}

TEST(ComparingFewPairs, AreNotKnownWhereAPairDoesNotSay) {
  const Check first = ofTwoPairs(1.0);
  Check other = ofTwoPairs(2.0);
  other.pairs[1].uncertainty.clear();
  EXPECT_EQ(compareFigures({&first, &other})[0].differences[1].judged, Judged::kUnknown);
  other.pairs[1].uncertainty = {{"dy_means", NAN, NAN, NAN}};
  EXPECT_EQ(compareFigures({&first, &other})[0].differences[1].judged, Judged::kUnknown);
}

TEST(ComparingFigures, AreThoseOfAnyCheck) {
  Check first = made_document::check();
  Check other = first;
  first.summary = {summary("dy_means", 1.0, 0.3), summary("tri_dis[0]", 1.0, 0.3)};
  other.summary = {summary("tri_rms", 2.0, 0.3)};
  const std::vector<ComparedFigure> figures = compareFigures({&first, &other});
  ASSERT_EQ(figures.size(), 3U);
  EXPECT_EQ(figures[0].name, "dy_means");
  EXPECT_EQ(figures[1].name, "tri_dis[0]");
  EXPECT_TRUE(std::isnan(figures[0].mean[1]) && std::isnan(figures[0].differences[1].value));
  EXPECT_EQ(figures[0].differences[1].judged, Judged::kUnknown);
  EXPECT_TRUE(std::isnan(figures[2].mean[0]));
  EXPECT_EQ(figures[2].mean[1], 2.0);
  EXPECT_DOUBLE_EQ(figures[2].low95[1], 1.4);
}

TEST(ComparingFigures, FromRefinedCentresStandBehindTheOthers) {
  Check first = made_document::check();
  first.pairs[0] = hand_made::refined(first.pairs[0], {0.05}, {});
  first.pairs[0].refined->uncertainty = {{"dy_means", 0.03, 0.0, 0.0}};
  first.refined_summary = {summary("dy_means", 0.05, NAN)};
  Check other = first;
  other.refined_summary = {summary("dy_means", 1.05, NAN)};
  const std::vector<ComparedFigure> figures = compareFigures({&first, &other});
  ASSERT_EQ(figures.size(), 2U);
  EXPECT_EQ(figures[0].differences[1].judged, Judged::kNone) << "the library's did not change";
  EXPECT_EQ(figures[1].name, "refined.dy_means");
  EXPECT_DOUBLE_EQ(figures[1].differences[1].value, 1.0);
  EXPECT_DOUBLE_EQ(figures[1].differences[1].sd, std::hypot(0.03, 0.03)) << "of the refined dots";
  EXPECT_EQ(figures[1].differences[1].judged, Judged::kMore);
}

TEST(ComparingLimits, StandSideBySide) {
  Check first = made_document::check();
  Check other = first;
  other.limits.push_back({"tri_rms<=1", 2.0, 0, false, "why"});
  const std::vector<ComparedLimit> limits = compareLimits({&first, &other});
  ASSERT_EQ(limits.size(), 2U);
  EXPECT_EQ(limits[0].text, "dy_means<=0.1");
  EXPECT_EQ(limits[0].results[0], &first.limits[0]);
  EXPECT_EQ(limits[0].results[1], &other.limits[0]);
  EXPECT_EQ(limits[1].results[0], nullptr);
  EXPECT_EQ(limits[1].results[1], &other.limits[1]);
}

}  // namespace
}  // namespace polarline
