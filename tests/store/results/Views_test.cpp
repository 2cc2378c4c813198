#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <string>
#include <vector>

#include "store/MadeStore.h"
#include "support/Places.h"

namespace {

using made_store::check;
using made_store::failed;
using made_store::name;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct Views : ::testing::Test {
  made_store::Store store;
  made_store::Results results;

  void add(unsigned number, const polarline::Check& check, const char* station, const char* time) const {
    store.add(name(number), check, {{"serial", "A"}, {"station", station}, {"model", "K2"}, {"time", time}});
  }
};

TEST_F(Views, YieldCountsWhatWasJudged) {
  polarline::Check without = check({0.05});
  without.limits.clear();
  add(1, check({0.05}), "1", "2026-01-05T06:00:00Z");
  add(2, check({0.05}), "1", "2026-01-05T07:00:00Z");
  add(3, check({0.2}), "1", "2026-01-05T08:00:00Z");
  add(4, without, "1", "2026-01-05T09:00:00Z");
  add(5, failed(), "1", "2026-01-05T10:00:00Z");
  add(6, failed(), "2", "2026-01-05T10:00:00Z");
  add(7, check({0.2}), "1", "2026-01-06T08:00:00Z");
  results.merge(store);
  EXPECT_THAT(
      results.rows(
          "SELECT station, day, sets, passed, failed, unjudged, errors, round(yield, 4) FROM yield_by_station_day"),
      ElementsAre("1|2026-01-05|5|2|1|1|1|0.6667", "1|2026-01-06|1|0|1|0|0|0.0", "2|2026-01-05|1|0|0|0|1|"));
}

TEST_F(Views, WorstSetIsTheOneFarthestBeyondItsLimit) {
  polarline::Check two = check({0.15});
  two.limits.push_back({"finished>=4", 1.0, -1, false, "so"});
  add(1, check({0.05}), "1", "2026-01-05T06:00:00Z");
  add(2, check({0.2}), "1", "2026-01-05T07:00:00Z");
  add(3, two, "1", "2026-01-05T08:00:00Z");
  add(4, failed(), "1", "2026-01-05T09:00:00Z");
  results.merge(store);
  EXPECT_THAT(
      results.rows("SELECT verdict, exceeded, worst_limit, measured, round(times, 6) FROM worst_sets"),
      ElementsAre("fail|2|finished>=4|1.0|4.0", "fail|1|dy_means<=0.1|0.2|2.0", "pass|0|dy_means<=0.1|0.05|0.5"));
  EXPECT_THAT(results.rows("SELECT document FROM worst_sets")[1], ::testing::EndsWith("/" + name(2) + ".json"));
}

/// Limits with the value that was judged, and how far that is, worked out by hand.
TEST_F(Views, TimesIsHowFarAValueIsTowardsItsBound) {
  polarline::Check many = check({0.15});
  many.limits = {{"dy_means<=0.5", 0.25, 0, true, "so"},   {"|tri_dis[0]|<=0.5", -1.0, 0, false, "so"},
                 {"dy_means>=0.5", 0.25, 0, false, "so"},  {"dy_means>=0.5", -1.0, 0, false, "so"},
                 {"given_up<=0", 3.0, -1, false, "so"},    {"tri_dis[0]<=-2", -3.0, 0, true, "so"},
                 {"tri_dis[0]>=-2", -3.0, 0, false, "so"}, {"dy_means<=1e-9", 5.0, 0, false, "so"},
                 {"tri_dis[1]<=0.5", -1.0, 0, true, "so"}, {"dy_means<=0.7", std::nullopt, -1, false, "so"}};
  add(1, many, "1", "2026-01-05T06:00:00Z");
  results.merge(store);
  // In the order of the limits.
  EXPECT_THAT(results.rows("SELECT round(j.times, 9) FROM judged_limits j JOIN limits l USING (set_id, text, value) "
                           "ORDER BY l.position"),
              ElementsAre("0.5", "2.0", "2.0", "1000.0", "4.0", "0.5", "1.5", "1000.0", "-2.0"));
  EXPECT_THAT(results.rows("SELECT times FROM judged_limits WHERE text = 'dy_means<=0.7'"), ElementsAre(""));
}

TEST_F(Views, TrendIsOverThePairsOfAStationAndDay) {
  add(1, check({0.02, 0.04}), "1", "2026-01-05T06:00:00Z");
  add(2, check({0.06}), "1", "2026-01-05T07:00:00Z");
  add(3, check({0.3}), "1", "2026-01-06T06:00:00Z");
  results.merge(store);
  EXPECT_THAT(results.rows("SELECT day, station, model, sets, pairs, round(mean, 9), min, max, round(variance, 9) "
                           "FROM figure_trend WHERE figure = 'dy_means'"),
              ElementsAre("2026-01-05|1|K2|2|3|0.04|0.02|0.06|0.0004", "2026-01-06|1|K2|1|1|0.3|0.3|0.3|"));
}

/// Sums of squares would leave nothing of it: 567.8 squared has 1e-11 of a digit's end.
TEST(ViewsTrend, HasTheVarianceOfLargeFiguresThatHardlyDiffer) {
  const made_store::Store store;
  const made_store::Results results;
  store.add(made_store::name(1), made_store::check({567.8, 567.8 + 1e-6, 567.8 + 2e-6}));
  results.merge(store);
  const double variance = std::stod(results.one("SELECT variance FROM figure_trend WHERE figure = 'dy_means'"));
  EXPECT_NEAR(variance, 1e-12, 1e-15);
}

/// The questions of the page, as they stand there, of a made fleet in which station 3 is off.
TEST(ViewsPage, QuestionsHaveAnswers) {
  const TempFolder folder;
  const std::string store = folder.file("store");
  const std::string fleet_documents = places::python() + " " + places::inProject("scripts/fleet_documents");
  ASSERT_EQ(std::system((fleet_documents + " '" + store + "' --sets 400 --pairs 1 --dots 1").c_str()), 0);
  const made_store::Results results;
  results.merge({store});
  const std::string page = TempFolder::contentOf(places::inProject("docs/store.md"));
  const std::regex block("```sql\n([^`]*)```");
  std::vector<std::vector<std::string>> answers;
  for (std::sregex_iterator each(page.begin(), page.end(), block), end; each != end; ++each)
    answers.push_back(results.rows((*each)[1]));
  ASSERT_EQ(answers.size(), 7U);
  EXPECT_EQ(answers[0].size(), 4U);
  EXPECT_THAT(answers[0][2], ::testing::StartsWith("3|"));
  // Pairs given up have no value to judge and may come first.
  EXPECT_THAT(answers[1], ::testing::Contains(HasSubstr("|3|2026-")).Times(::testing::Ge(6)));
  EXPECT_EQ(answers[1].size(), 10U);
  EXPECT_GT(answers[2].size(), 20U);
  EXPECT_THAT(answers[3][0], ::testing::StartsWith("3|rotation_x|"));
  EXPECT_THAT(answers[5], ElementsAre(HasSubstr("early|"), HasSubstr("late|")));
}

}  // namespace
