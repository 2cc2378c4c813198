#include "store/results/LimitRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "store/MadeStore.h"
#include "store/results/Schema.h"

namespace {

using polarline::results::LimitRules;
using ::testing::ElementsAre;

struct LimitRulesOf : ::testing::Test {
  made_store::Results results;

  std::string row(const std::string& text) const {
    return results.one(
        "SELECT figure || '|' || statistic || '|' || absolute || '|' || comparison || '|' || bound FROM limit_rules "
        "WHERE text = '" +
        text + "'");
  }
};

TEST_F(LimitRulesOf, AreWhatTheTextsSay) {
  const auto database = polarline::results::openResultsToWrite(results.path());
  LimitRules rules(*database);
  for (const char* text : {"dy_means<=0.1", "|tri_dis[0]| < 0.5", "summary.refined.dy_max.sd>1e-3", "given_up>=-2"})
    rules.add(text);
  EXPECT_EQ(row("dy_means<=0.1"), "dy_means||0|<=|0.1");
  EXPECT_EQ(row("|tri_dis[0]| < 0.5"), "tri_dis[0]||1|<|0.5");
  EXPECT_EQ(row("summary.refined.dy_max.sd>1e-3"), "refined.dy_max|sd|0|>|0.001");
  EXPECT_EQ(row("given_up>=-2"), "given_up||0|>=|-2.0");
}

TEST_F(LimitRulesOf, HaveARowWithoutAFigureForWhatNobodyCanRead) {
  const auto database = polarline::results::openResultsToWrite(results.path());
  LimitRules(*database).add("dy_means is small");
  EXPECT_THAT(results.rows("SELECT text, figure IS NULL, statistic IS NULL, bound IS NULL FROM limit_rules"),
              ElementsAre("dy_means is small|1|1|1"));
}

TEST_F(LimitRulesOf, StandThereOnce) {
  const auto database = polarline::results::openResultsToWrite(results.path());
  LimitRules first(*database), second(*database);
  for (LimitRules* rules : {&first, &second, &first}) rules->add("dy_means<=0.1");
  EXPECT_EQ(results.one("SELECT count(*) FROM limit_rules"), "1");
}

}  // namespace
