#include "check/judge/Limit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "polarline/errors.h"

namespace polarline {
namespace {

using Comparison = Limit::Comparison;
using ::testing::HasSubstr;

struct Form {
  const char* text;
  const char* figure;
  int entry;  ///< -1: none.
  const char* statistic;
  bool is_absolute;
  Comparison comparison;
  double bound;
};

class LimitForm : public ::testing::TestWithParam<Form> {};

TEST_P(LimitForm, IsParsed) {
  const Form& wanted = GetParam();
  const Limit limit = parseLimit(wanted.text);
  EXPECT_EQ(limit.text, wanted.text);
  EXPECT_EQ(limit.figure, wanted.figure);
  EXPECT_EQ(limit.entry ? static_cast<int>(*limit.entry) : -1, wanted.entry);
  EXPECT_EQ(limit.statistic, wanted.statistic);
  EXPECT_EQ(limit.is_absolute, wanted.is_absolute);
  EXPECT_EQ(limit.comparison, wanted.comparison);
  EXPECT_EQ(limit.bound, wanted.bound);
}

INSTANTIATE_TEST_SUITE_P(
    All, LimitForm,
    ::testing::Values(Form{"dy_means<=0.1", "dy_means", -1, "", false, Comparison::kLessOrEqual, 0.1},
                      Form{" dy_max < 5e-1 ", "dy_max", -1, "", false, Comparison::kLess, 0.5},
                      Form{"|tri_dis[0]|<=0.5", "tri_dis", 0, "", true, Comparison::kLessOrEqual, 0.5},
                      Form{"tri_dis >= -2", "tri_dis", -1, "", false, Comparison::kGreaterOrEqual, -2.0},
                      Form{"summary.dy_means.mean<=0.1", "dy_means", -1, "mean", false, Comparison::kLessOrEqual, 0.1},
                      Form{"|summary.tri_dis[7].max|<1", "tri_dis", 7, "max", true, Comparison::kLess, 1.0},
                      Form{"id_dis[90]<1", "id_dis", 90, "", false, Comparison::kLess, 1.0},
                      Form{"finished>2", "finished", -1, "", false, Comparison::kGreater, 2.0}));

TEST(LimitOfRefined, BearsThePrefixBeforeTheFigure) {
  const Limit each = parseLimit("|refined.tri_dis[2]| <= 0.25");
  EXPECT_TRUE(each.is_refined);
  EXPECT_EQ(each.figure, "tri_dis");
  EXPECT_EQ(each.entry, 2U);
  EXPECT_TRUE(each.is_absolute);
  EXPECT_EQ(judgedName(each), "refined.tri_dis[2]");
  const Limit summary = parseLimit("summary.refined.dy_means.mean<0.02");
  EXPECT_TRUE(summary.is_refined);
  EXPECT_EQ(summary.figure, "dy_means");
  EXPECT_EQ(summary.statistic, "mean");
  EXPECT_EQ(judgedName(summary), "refined.dy_means");
  EXPECT_FALSE(parseLimit("dy_means<0.02").is_refined);
}

class LimitRefusal : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(LimitRefusal, SaysWhatWasWanted) {
  const auto& [text, words] = GetParam();
  try {
    parseLimit(text);
    FAIL() << text;
  } catch (const InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr(words));
    EXPECT_THAT(error.what(), HasSubstr(std::string("limit '") + text + "'"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, LimitRefusal,
    ::testing::Values(
        std::pair{"", "FIGURE OP VALUE was wanted"}, std::pair{"dy_means", "FIGURE OP VALUE was wanted"},
        std::pair{"dy_means=0.1", "FIGURE OP VALUE was wanted"},
        std::pair{"|dy_means<=0.1", "FIGURE OP VALUE was wanted"},
        std::pair{"dy_means|<=0.1", "FIGURE OP VALUE was wanted"},
        std::pair{"dy_means.mean<=0.1", "FIGURE OP VALUE was wanted"},
        std::pair{"summary.dy_means<=0.1", "FIGURE OP VALUE was wanted"},
        std::pair{"summary.dy_means.median<=0.1", "no statistic 'median'; mean, sd, min or max was wanted"},
        std::pair{"dy_means==0.1", "with <=, >=, < or > for OP"}, std::pair{"foo<=1", "'polarline explain' lists all"},
        std::pair{"dy_means<=0.1 0.2", "FIGURE OP VALUE was wanted"},
        std::pair{"dy_means<=0,1", "'0,1' is not a number"}, std::pair{"dy_means<=low", "'low' is not a number"},
        std::pair{"dy_means<=nan", "'nan' is not a number"}, std::pair{"dy_means<=inf", "'inf' is not a number"},
        std::pair{"dy_means<=1e999", "'1e999' is not a number"}, std::pair{"dy_mean<=0.1", "did you mean dy_means"},
        std::pair{"DY_MEANS<=0.1", "there is no figure 'DY_MEANS'; did you mean dy_means"},
        std::pair{"tri_rmse<=0.1", "did you mean tri_rms"},
        std::pair{"summary.tri_dis.mean<=1", "such as summary.tri_dis[0].mean"},
        std::pair{"summary.dy_means[0].mean<=1", "it has no entries"},
        std::pair{"dy_means[3]<=1", "'dy_means' is one number"}, std::pair{"tri_dis[8]<=1", "has the entries 0-7"},
        std::pair{"pol_dis[9]<=1", "has the entries 0-7"}, std::pair{"PoseReport[8]<=1", "has the entries 0-7"},
        std::pair{"pairs[7]<=5", "'pairs' is a count; it has no entries"},
        std::pair{"summary.pairs.mean<=1", "it has no statistics"},
        std::pair{"refined.dy_mean<=1", "did you mean refined.dy_means"},
        std::pair{"refined.finished<=1", "there is no figure 'refined.finished'"},
        std::pair{"refined.summary.dy_means.mean<=1", "FIGURE OP VALUE was wanted"},
        std::pair{"refined.PoseReport[0]<=1", "there is no figure 'refined.PoseReport'"},
        std::pair{"refined.<=1", "FIGURE OP VALUE was wanted"},
        std::pair{"refined.tri_dis[8]<=1", "has the entries 0-7"},
        std::pair{"summary.refined.tri_dis.mean<=1", "such as summary.refined.tri_dis[0].mean"},
        std::pair{"pairPoints<=1", "there is no figure 'pairPoints'"}));

struct Judged {
  const char* text;
  double value;
  bool holds;
};

class LimitHolds : public ::testing::TestWithParam<Judged> {};

TEST_P(LimitHolds, AsTheComparisonSays) {
  EXPECT_EQ(holds(parseLimit(GetParam().text), GetParam().value), GetParam().holds);
}

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(All, LimitHolds,
                         ::testing::Values(Judged{"dy_max<1", 0.5, true}, Judged{"dy_max<1", 1.0, false},
                                           Judged{"dy_max<=1", 1.0, true}, Judged{"dy_max<=1", 1.5, false},
                                           Judged{"dy_max>1", 1.5, true}, Judged{"dy_max>1", 1.0, false},
                                           Judged{"dy_max>=1", 1.0, true}, Judged{"dy_max>=1", 0.5, false},
                                           Judged{"dy_max<1", -5.0, true}, Judged{"|dy_max|<1", -5.0, false},
                                           Judged{"|dy_max|>1", -5.0, true}, Judged{"dy_max<1", kNoNumber, false},
                                           Judged{"dy_max>1", kNoNumber, false}, Judged{"dy_max<=1", kNoNumber, false},
                                           Judged{"dy_max>=1", kNoNumber, false}));

TEST(LimitNames, RequireLimitTakesAndRefusesTheSame) {
  EXPECT_NO_THROW(requireLimit("dy_means<=0.1"));
  EXPECT_THROW(requireLimit("dy_mean<=0.1"), InputError);
}

}  // namespace
}  // namespace polarline
