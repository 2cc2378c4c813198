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

TEST(ComparingFigures, AreThoseOfAnyCheck) {
  Check first = made_document::check();
  Check other = first;
  first.summary = {summary("dy_means", 1.0, 0.3), summary("tri_dis[0]", 1.0, 0.3)};
  other.summary = {summary("tri_rms", 2.0, 0.3)};
  const std::vector<ComparedFigure> figures = compareFigures({&first, &other});
  ASSERT_EQ(figures.size(), 2U);
  EXPECT_EQ(figures[0].name, "dy_means");
  EXPECT_TRUE(std::isnan(figures[0].mean[1]) && std::isnan(figures[0].differences[1].value));
  EXPECT_EQ(figures[0].differences[1].judged, Judged::kUnknown);
  EXPECT_TRUE(std::isnan(figures[1].mean[0]));
  EXPECT_EQ(figures[1].mean[1], 2.0);
  EXPECT_DOUBLE_EQ(figures[1].low95[1], 1.4);
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
