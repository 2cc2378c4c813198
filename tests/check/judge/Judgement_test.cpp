#include "check/judge/Judgement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "HandMadeCheck.h"
#include "check/figures/Summary.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// Pairs 3, 4 and 6 are finished, pair 5 is given up and would be the worst.
Check threeFinished() {
  Check check;
  check.pairs = {hand_made::pair(3, {0.25}, {1.0, -3.0}), hand_made::pair(4, {0.5}, {2.0, 0.5}),
                 hand_made::givenUp(hand_made::pair(5, {9.0}, {9.0, 9.0})), hand_made::pair(6, {0.125}, {0.0, 1.0})};
  check.summary = summaryOf(check.pairs);
  return check;
}

LimitResult judged(const std::string& text, const Check& check) { return judge({parseLimit(text)}, check).at(0); }

struct Case {
  const char* text;
  double value;
  int pair;
  bool holds;
  const char* why;
};

class JudgementOfThree : public ::testing::TestWithParam<Case> {};

TEST_P(JudgementOfThree, TellsTheWorstValueOfAFinishedPair) {
  const Case& wanted = GetParam();
  const LimitResult result = judged(wanted.text, threeFinished());
  EXPECT_EQ(result.text, wanted.text);
  EXPECT_EQ(result.value, wanted.value);
  EXPECT_EQ(result.pair, wanted.pair);
  EXPECT_EQ(result.holds, wanted.holds);
  EXPECT_EQ(result.why, wanted.why);
}

INSTANTIATE_TEST_SUITE_P(
    All, JudgementOfThree,
    ::testing::Values(Case{"dy_means<=0.5", 0.5, 4, true, "dy_means is 0.5 in pair 4"},
                      Case{"dy_means<0.5", 0.5, 4, false, "dy_means is 0.5 in pair 4"},
                      Case{"dy_means>=0.2", 0.125, 6, false, "dy_means is 0.125 in pair 6"},
                      Case{"tri_dis<=2", 2.0, 4, true, "tri_dis[0] is 2 in pair 4"},
                      Case{"|tri_dis|<=2", -3.0, 3, false, "tri_dis[1] is -3 in pair 3"},
                      Case{"tri_dis[1]<=1", 1.0, 6, true, "tri_dis[1] is 1 in pair 6"},
                      Case{"pairs>=4", 4.0, -1, true, "pairs is 4"},
                      Case{"finished>=4", 3.0, -1, false, "finished is 3"},
                      Case{"given_up<=0", 1.0, -1, false, "given_up is 1"},
                      Case{"summary.dy_means.max<=0.5", 0.5, -1, true, "the max of dy_means over 3 pairs is 0.5"},
                      Case{"summary.dy_means.min>=0.2", 0.125, -1, false, "the min of dy_means over 3 pairs is 0.125"},
                      Case{"summary.tri_dis[0].mean<=1", 1.0, -1, true, "the mean of tri_dis[0] over 3 pairs is 1"},
                      Case{"summary.tri_dis[0].sd<1", 1.0, -1, false, "the sd of tri_dis[0] over 3 pairs is 1"}));

TEST(JudgementOfTheUnmeasured, NeverHolds) {
  Check check = threeFinished();
  check.pairs[1].figures[0].values.clear();
  const LimitResult unmeasured = judged("dy_means<=10", check);
  EXPECT_FALSE(unmeasured.value);
  EXPECT_FALSE(unmeasured.holds);
  EXPECT_EQ(unmeasured.why, "pair 4 did not measure it");
  EXPECT_FALSE(judged("tri_dis[2]<=10", threeFinished()).holds);
  EXPECT_EQ(judged("summary.dis_rms.mean<=10", check).why, "no pair measured dis_rms");
  const LimitResult nobody = judged("dy_means<=10", Check{});
  EXPECT_FALSE(nobody.holds);
  EXPECT_EQ(nobody.why, "no pair was finished");
}

TEST(JudgementOfCounts, NeverHoldsWhereTheRunEndedEarly) {
  const Check check = threeFinished();
  for (const char* text : {"given_up<=5", "finished>=1", "pairs<=9"}) {
    EXPECT_TRUE(judge({parseLimit(text)}, check).front().holds) << text;
    const LimitResult result = judge({parseLimit(text)}, check, false).front();
    EXPECT_FALSE(result.holds || result.value) << text;
    EXPECT_THAT(result.why, ::testing::StartsWith("the run ended before its last pair; up to there ")) << text;
  }
  EXPECT_TRUE(judge({parseLimit("dy_means<=100")}, check, false).front().value) << "of the pairs that are there";
}

TEST(JudgementOfNoNumber, IsWorseThanAnyNumber) {
  for (const std::size_t place : {0U, 1U, 3U}) {
    Check check = threeFinished();
    check.pairs[place].figures[0].values = {kNoNumber};
    const LimitResult result = judged("dy_means<=10", check);
    EXPECT_FALSE(result.holds) << place;
    EXPECT_EQ(result.pair, static_cast<int>(check.pairs[place].index));
  }
}

/// Detected centres are ten times as far off as refined ones; the refined evaluation of pair 2 failed.
Check refinedCheck() {
  Check check;
  check.pairs = {hand_made::refined(hand_made::pair(0, {0.25}, {1.0, -3.0}), {0.025}, {0.1, -0.3}),
                 hand_made::refined(hand_made::pair(1, {0.5}, {2.0, 0.5}), {0.05}, {0.2, 0.05})};
  check.summary = summaryOf(check.pairs);
  check.refined_summary = refinedSummaryOf(check.pairs);
  return check;
}

TEST(JudgementOfRefined, SeesTheRefinedFigures) {
  const LimitResult each = judged("refined.dy_means<=0.1", refinedCheck());
  EXPECT_TRUE(each.holds);
  EXPECT_EQ(each.value, 0.05);
  EXPECT_EQ(each.pair, 1);
  EXPECT_EQ(each.why, "refined.dy_means is 0.05 in pair 1");
  EXPECT_FALSE(judged("dy_means<=0.1", refinedCheck()).holds);
  EXPECT_EQ(judged("|refined.tri_dis|<=0.2", refinedCheck()).why, "refined.tri_dis[1] is -0.3 in pair 0");
  const LimitResult summary = judged("summary.refined.dy_means.mean<=0.1", refinedCheck());
  EXPECT_NEAR(summary.value.value(), 0.0375, 1e-15);
  EXPECT_THAT(summary.why, ::testing::StartsWith("the mean of refined.dy_means over 2 pairs is 0.0375"));
}

TEST(JudgementOfRefined, DoesNotHoldWhereRefiningFailed) {
  Check check = refinedCheck();
  check.pairs.push_back(hand_made::refined(hand_made::pair(2, {0.25}, {1.0}), {}, {}));
  EXPECT_TRUE(judged("dy_means<=1", check).holds);
  const LimitResult failed = judged("refined.dy_means<=1", check);
  EXPECT_FALSE(failed.holds);
  EXPECT_EQ(failed.why, "pair 2 did not measure it");
  check.refined_summary.reset();
  EXPECT_EQ(judged("summary.refined.tri_dis[0].mean<=1", check).why, "no pair measured refined.tri_dis[0]");
}

TEST(JudgementOfRefined, IsRefusedWhereNothingIsRefined) {
  EXPECT_NO_THROW(requireDetected({parseLimit("dy_means<=1")}));
  try {
    requireDetected({parseLimit("dy_means<=1"), parseLimit("refined.dy_max<=1")});
    FAIL();
  } catch (const InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr("limit 'refined.dy_max<=1'"));
    EXPECT_THAT(error.what(), HasSubstr("--refine"));
  }
}

TEST(JudgementMarks, RefinedFiguresByTheirOwnLimits) {
  PairCheck pair = hand_made::refined(hand_made::pair(0, {0.25}, {1.0}), {0.025}, {0.1});
  mark({parseLimit("dy_means<=0.1"), parseLimit("refined.tri_dis<=0.05")}, pair);
  EXPECT_TRUE(pair.figures[0].exceeds);
  EXPECT_FALSE(pair.refined->figures[0].is_limited);
  EXPECT_FALSE(pair.figures[1].is_limited);
  EXPECT_TRUE(pair.refined->figures[1].exceeds);
}

TEST(JudgementMarks, LimitedAndExceededFigures) {
  const std::vector<Limit> limits = {parseLimit("dy_means<=0.3"), parseLimit("|tri_dis[0]|<=1.5"),
                                     parseLimit("summary.tri_dis[1].mean<=-9"), parseLimit("given_up<=0")};
  PairCheck good = hand_made::pair(0, {0.25}, {1.0, -3.0});
  mark(limits, good);
  EXPECT_TRUE(good.figures[0].is_limited);
  EXPECT_TRUE(good.figures[1].is_limited);
  EXPECT_FALSE(good.figures[0].exceeds);
  EXPECT_FALSE(good.figures[1].exceeds);
  PairCheck bad = hand_made::pair(1, {0.5}, {-2.0, 0.0});
  mark(limits, bad);
  EXPECT_TRUE(bad.figures[0].exceeds);
  EXPECT_TRUE(bad.figures[1].exceeds);
  ASSERT_EQ(bad.figures[1].entries.size(), 1U);
  EXPECT_EQ(bad.figures[1].entries[0].entry, 0U);
  EXPECT_TRUE(bad.figures[1].entries[0].exceeds);
  EXPECT_FALSE(bad.figures[1].is_whole_limited);
  EXPECT_TRUE(bad.figures[0].is_whole_limited);
  PairCheck unmeasured = hand_made::pair(2, {}, {});
  mark(limits, unmeasured);
  EXPECT_TRUE(unmeasured.figures[0].exceeds);
  EXPECT_TRUE(unmeasured.figures[1].exceeds);
  PairCheck given_up = hand_made::givenUp(hand_made::pair(3, {0.5}, {2.0}));
  mark(limits, given_up);
  EXPECT_FALSE(given_up.figures[0].exceeds);
  PairCheck unlimited = hand_made::pair(4, {9.0}, {9.0});
  mark({parseLimit("summary.dy_means.max<=1")}, unlimited);
  EXPECT_FALSE(unlimited.figures[0].is_limited);
}

TEST(JudgementFile, HasALimitALine) {
  const TempFolder folder;
  const auto limits = readLimits(folder.write("limits.txt", "# ours\n\ndy_means<=0.1\r\n \t\n  # theirs\n|tri_dis|<1"));
  ASSERT_EQ(limits.size(), 2U);
  EXPECT_EQ(limits[0].text, "dy_means<=0.1");
  EXPECT_EQ(limits[1].figure, "tri_dis");
}

TEST(JudgementFile, NamesTheLineThatDoesNotParse) {
  const TempFolder folder;
  const std::string path = folder.write("limits.txt", "# ours\ndy_means<=0.1\ndy_mean<=0.1\n");
  try {
    readLimits(path);
    FAIL();
  } catch (const InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr(path + ", line 3"));
    EXPECT_THAT(error.what(), HasSubstr("did you mean dy_means"));
  }
}

TEST(JudgementNames, AreFiguresAndCounts) {
  const std::vector<std::string> names = limitNames();
  EXPECT_THAT(names, ::testing::IsSupersetOf({"dy_means", "tri_rms", "space_rms", "frameValues", "dis_rms", "pairs",
                                              "finished", "given_up", "refined.dy_means"}));
  EXPECT_THAT(names, ::testing::Not(::testing::Contains("detect_canvas")));
  EXPECT_THAT(names, ::testing::Not(::testing::Contains("refined.pairs")));
  EXPECT_THAT(names, ::testing::Contains("PoseReport"));
  EXPECT_THAT(names, ::testing::Not(::testing::Contains("refined.PoseReport"))) << "nothing would ever measure it";
}

/// Pair 4 is the worst, certain from 0.4 to 0.625 only; the mean of `dy_means` from 0.2 to 0.3.
Check uncertain() {
  Check check = threeFinished();
  check.pairs[0].uncertainty = {{"dy_means", 0.5, 0.0, 9.0}};
  check.pairs[1].uncertainty = {{"dy_means", 0.05, 0.4, 0.625}};
  check.summary[0].low95 = 0.2;
  check.summary[0].high95 = 0.3;
  return check;
}

struct CloseCall {
  const char* limit;
  bool holds;
  bool is_close;
};

class JudgementCloseCall : public ::testing::TestWithParam<CloseCall> {};

TEST_P(JudgementCloseCall, IsToldAndChangesNoVerdict) {
  const LimitResult result = judged(GetParam().limit, uncertain());
  EXPECT_EQ(result.holds, GetParam().holds);
  EXPECT_EQ(result.holds, judged(GetParam().limit, threeFinished()).holds);
  EXPECT_EQ(result.why.find("too close to call") != std::string::npos, GetParam().is_close) << result.why;
}

INSTANTIATE_TEST_SUITE_P(
    All, JudgementCloseCall,
    ::testing::Values(CloseCall{"dy_means<=0.5", true, true}, CloseCall{"dy_means<0.5", false, true},
                      CloseCall{"dy_means<=0.4", false, true}, CloseCall{"dy_means<=0.625", true, true},
                      CloseCall{"dy_means<=0.39", false, false}, CloseCall{"dy_means<=0.7", true, false},
                      CloseCall{"|tri_dis|<=3", true, false}, CloseCall{"summary.dy_means.mean<=0.25", false, true},
                      CloseCall{"summary.dy_means.mean<=0.31", true, false},
                      CloseCall{"summary.dy_means.max<=0.25", false, false}, CloseCall{"pairs>=4", true, false}));

TEST(JudgementOfRefined, CloseCallGoesByTheRefinedInterval) {
  Check check = uncertain();
  for (PairCheck& pair : check.pairs) {
    pair.refined.emplace().figures = pair.figures;
    pair.refined->uncertainty = {{"dy_means", 0.001, 0.4999, 0.5001}};
  }
  EXPECT_THAT(judge({parseLimit("refined.dy_means<=0.5")}, check)[0].why, HasSubstr("from 0.4999 to 0.5001"));
  EXPECT_THAT(judge({parseLimit("refined.dy_means<=0.6")}, check)[0].why, ::testing::Not(HasSubstr("too close")));
}

TEST(Judgement, CloseCallTellsTheInterval) {
  EXPECT_EQ(judged("dy_means<=0.5", uncertain()).why,
            "dy_means is 0.5 in pair 4; too close to call, it is certain to 95 % only from 0.4 to 0.625");
}

// 0.1F is a little above 0.1, and both are written so; one float further is not.
TEST(JudgementOfSingles, TakesTheBoundAsTheSameFloat) {
  Check check;
  check.pairs = {hand_made::pair(0, {static_cast<double>(0.1F)}, {})};
  check.pairs[0].figures[0].is_single = true;
  EXPECT_TRUE(judged("dy_means<=0.1", check).holds);
  EXPECT_TRUE(judged("dy_means>=0.1", check).holds);
  EXPECT_FALSE(judged("dy_means<0.1", check).holds);
  EXPECT_TRUE(judged("dy_means<=0.1", check).is_single);
  check.pairs[0].figures[0].values = {static_cast<double>(std::nextafter(0.1F, 1.0F))};
  EXPECT_FALSE(judged("dy_means<=0.1", check).holds);
  check.pairs[0].figures[0].is_single = false;
  check.pairs[0].figures[0].values = {static_cast<double>(0.1F)};
  EXPECT_FALSE(judged("dy_means<=0.1", check).holds);
}

}  // namespace
}  // namespace polarline
