#include "store/fleet/Measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

LimitRule rule(const std::string& figure, const std::string& statistic, bool is_absolute, bool is_upper,
               std::size_t sets, double bound = 1.0) {
  return {figure + statistic, figure, statistic, is_absolute, is_upper, bound, sets};
}

/// "name value rules" of each.
std::vector<std::string> told(const std::vector<Measure>& measures) {
  std::vector<std::string> words;
  for (const Measure& measure : measures) {
    std::string text = measure.name + " " + nameOf(measure.value);
    for (const std::size_t each : measure.rules) text += " " + std::to_string(each);
    words.push_back(text);
  }
  return words;
}

struct MeasuresChosen : ::testing::Test {
  FleetRows rows;
  std::size_t left_out = 99;

  std::vector<std::string> chosen(const std::vector<LimitRule>& rules) {
    return told(chooseMeasures(rows.database(), {rules, {}}, left_out));
  }
};

TEST_F(MeasuresChosen, AreWhatMostSetsAreJudgedByFirst) {
  EXPECT_THAT(chosen({rule("dy_max", "", false, true, 3), rule("tri_rms", "", false, true, 7),
                      rule("dy_max", "", false, true, 9), rule("tri_rms", "mean", false, true, 1)}),
              ElementsAre("dy_max max 2 0", "tri_rms max 1", "tri_rms mean 3"));
  EXPECT_EQ(left_out, 0U);
}

TEST_F(MeasuresChosen, AreTheNumberThatTheLimitsAskFor) {
  EXPECT_THAT(chosen({rule("dis_rms", "", false, false, 1)}), ElementsAre("dis_rms min 0"));
  EXPECT_THAT(chosen({rule("zero_dis", "", false, false, 1), rule("zero_dis", "", false, true, 1)}),
              ElementsAre("zero_dis mean 0 1"));
  EXPECT_THAT(chosen({rule("tri_dis[0]", "", true, true, 1), rule("tri_dis[0]", "", false, true, 1)}),
              ElementsAre("tri_dis[0] abs 0 1"));
  EXPECT_THAT(chosen({rule("dy_means", "sd", false, true, 1)}), ElementsAre("dy_means sd 0"));
}

TEST_F(MeasuresChosen, LimitsOnPairsAndOnTheirLargestAreOneMeasure) {
  EXPECT_THAT(chosen({rule("dy_means", "max", false, true, 2), rule("dy_means", "", false, true, 5)}),
              ElementsAre("dy_means max 1 0"));
}

TEST_F(MeasuresChosen, AreNoCountsAndNothingThatNoSetHas) {
  EXPECT_THAT(
      chosen({rule("given_up", "", false, true, 4), rule("", "", false, false, 4), rule("dy_max", "", false, true, 0)}),
      IsEmpty());
}

TEST_F(MeasuresChosen, AreTheMainFiguresWhereNothingElseIsJudged) {
  const auto set = rows.set("2026-01-05T06:00:00Z");
  rows.pair(set, 0, {{"tri_rms", 0.2}, {"dy_means", 0.1}, {"gt_rms", 0.3}, {"refined.dy_means", 0.1}});
  EXPECT_THAT(chosen({rule("dy_means", "max", false, true, 1)}),
              ElementsAre("dy_means max 0", "tri_rms mean", "refined.dy_means mean"));
}

TEST_F(MeasuresChosen, AreEightAtMost) {
  std::vector<LimitRule> rules;
  for (std::size_t k = 0; k < 6; ++k) rules.push_back(rule("tri_dis[" + std::to_string(k) + "]", "", true, true, 1));
  for (const char* name : {"dy_means", "dy_max", "tri_rms"}) rules.push_back(rule(name, "", false, true, 5));
  const auto found = chosen(rules);
  ASSERT_EQ(found.size(), 8U);
  EXPECT_EQ(found[0], "dy_max max 7");  // Of equal ones by name.
  EXPECT_EQ(left_out, 1U);
}

TEST(MeasuresUnit, IsThatOfTheFigure) {
  EXPECT_EQ(unitOf("dy_means"), "pixels");
  EXPECT_EQ(unitOf("refined.dy_means"), "pixels");
  EXPECT_EQ(unitOf("tri_dis[0]"), unitOf("tri_dis"));
  EXPECT_EQ(unitOf("tri_dis[0]"), "board unit");
  EXPECT_EQ(unitOf("nor_rms"), "") << "a bare number";
  EXPECT_EQ(unitOf("no such figure"), "");
}

struct MeasuresBounds : ::testing::Test {
  FleetRows rows;
  const Measure measure{"zero_dis", MeasureValue::kMean, {0, 1, 2}};
  LimitsSeen limits{{rule("zero_dis", "", false, true, 1, 1010.0), rule("zero_dis", "", false, false, 1, 990.0),
                     rule("zero_dis", "", false, true, 1, 1005.0), rule("dy_max", "", false, true, 1, 0.5)},
                    {}};

  FleetSets sets(const std::vector<int>& groups) {
    for (std::size_t k = 0; k < groups.size(); ++k) rows.set("2026-01-0" + std::to_string(k + 1) + "T06:00:00Z");
    FleetSets sets(rows.database());
    for (std::size_t k = 0; k < groups.size(); ++k) sets.at(k).group = groups[k];
    return sets;
  }
};

TEST_F(MeasuresBounds, AreTheTightestOfASet) {
  const FleetSets sets = this->sets({0, 1});
  limits.all = {{0, 0, 0, true}, {0, 1, 0, true}, {0, 2, 0, true}, {1, 3, 0, true}};
  const GroupBounds found = boundsOf(measure, limits, sets, 2);
  EXPECT_EQ(found.of_group[0].upper, 1005.0);
  EXPECT_EQ(found.of_group[0].lower, 990.0);
  EXPECT_EQ(found.of_group[1].upper, std::nullopt) << "that limit is on another figure";
  EXPECT_FALSE(found.changed);
}

TEST_F(MeasuresBounds, AreThoseOfTheNewestSetOfAGroup) {
  const FleetSets sets = this->sets({0, 0, 1, -1});
  limits.all = {{1, 0, 0, true}, {0, 2, 0, true}, {2, 2, 0, true}, {3, 0, 0, true}};
  const GroupBounds found = boundsOf(measure, limits, sets, 2);
  EXPECT_EQ(found.of_group[0].upper, 1010.0);
  EXPECT_EQ(found.of_group[1].upper, 1005.0);
  EXPECT_TRUE(found.changed);
}

TEST_F(MeasuresBounds, StayWhereALaterSetHasNone) {
  const FleetSets sets = this->sets({0, 0});
  limits.all = {{0, 0, 0, true}};
  const GroupBounds found = boundsOf(measure, limits, sets, 1);
  EXPECT_EQ(found.of_group[0].upper, 1010.0);
  EXPECT_FALSE(found.changed);
}

}  // namespace
