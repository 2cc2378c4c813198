#include "store/fleet/Worst.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::ElementsAre;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
const LimitRule kUpper{"dy_means<=0.1", "dy_means", "", false, true, 0.1, 0};
const LimitRule kLower{"finished>=4", "finished", "", false, false, 4.0, 0};
const LimitRule kUnread{"new kind", "", "", false, false, 0.0, 0};

struct WorstOf : ::testing::Test {
  FleetRows rows;
  LimitsSeen limits{{kUpper, kLower, kUnread}, {}};

  /// Sets of one group with these verdicts, in the order of time.
  FleetSets sets(const std::vector<std::string>& verdicts) {
    for (const std::string& verdict : verdicts) {
      const std::size_t k = places_++;
      rows.set("2026-01-05T" + std::to_string(10 + k / 50) + ":" + std::to_string(10 + k % 50) + ":00Z", verdict);
    }
    FleetSets sets(rows.database());
    for (FleetSet& set : sets.all()) set.group = 0;
    return sets;
  }
  static std::vector<std::size_t> placesOf(const std::vector<WorstSet>& worst) {
    std::vector<std::size_t> places;
    for (const WorstSet& each : worst) places.push_back(each.place);
    return places;
  }

 private:
  std::size_t places_ = 0;
};

TEST_F(WorstOf, FailedSetsComeFirstByHowFarTheyAreBeyond) {
  const FleetSets sets = this->sets({"pass", "fail", "fail", "pass", "error"});
  limits.all = {{0, 0, 0.05, true},  // Half of the bound.
                {1, 0, 0.2, false},  // Twice.
                {2, 1, 1.0, false},  // One where four are wanted: four times.
                {2, 0, 0.15, false},
                {3, 0, 0.09, true}};
  const auto worst = worstOf(sets, limits, std::vector<double>(5, kNone), 1);
  EXPECT_THAT(placesOf(worst), ElementsAre(2, 1, 3, 0));
  EXPECT_EQ(worst[0].rule, 1U);
  EXPECT_EQ(worst[0].measured, 1.0);
  EXPECT_EQ(worst[0].times, 4.0);
  EXPECT_DOUBLE_EQ(*worst[2].times, 0.9);
}

TEST_F(WorstOf, ALimitWithoutANumberIsTheWorstOfThoseThatDoNotHold) {
  const FleetSets sets = this->sets({"fail", "fail"});
  limits.all = {{0, 0, 0.9, false}, {1, 0, 0.5, false}, {1, 1, kNone, false}};
  const auto worst = worstOf(sets, limits, {kNone, kNone}, 1);
  EXPECT_THAT(placesOf(worst), ElementsAre(1, 0));
  EXPECT_EQ(worst[0].rule, 1U);
  EXPECT_EQ(worst[0].measured, std::nullopt);
  EXPECT_EQ(worst[0].times, std::nullopt);
}

TEST_F(WorstOf, ALimitThatHoldsAndCanNotBeReadSaysNothing) {
  const FleetSets sets = this->sets({"pass"});
  limits.all = {{0, 2, 5.0, true}, {0, 0, 0.01, true}};
  EXPECT_EQ(worstOf(sets, limits, {kNone}, 1)[0].rule, 0U);
}

TEST_F(WorstOf, SetsWithoutLimitsStandBehindByTheirRowDifferences) {
  FleetSets sets = this->sets({"pass", "pass", "pass", "pass"});
  limits.all = {{2, 0, 0.001, true}};
  const auto worst = worstOf(sets, limits, {0.02, 0.05, 0.001, kNone}, 1);
  EXPECT_THAT(placesOf(worst), ElementsAre(2, 1, 0, 3));
  EXPECT_EQ(worst[1].rule, std::nullopt);
  EXPECT_EQ(worst[1].measured, 0.05);
  EXPECT_EQ(worst[3].measured, std::nullopt);
}

TEST_F(WorstOf, EachGroupHasTenAndEqualOnesStandInTheOrderOfTime) {
  FleetSets sets = this->sets(std::vector<std::string>(30, "fail"));
  for (std::size_t k = 0; k < 30; ++k) {
    limits.all.push_back({k, 0, k < 12 ? 0.3 : 0.2, false});
    sets.at(k).group = k < 12 ? 0 : k < 29 ? 1 : -1;
  }
  const auto worst = worstOf(sets, limits, std::vector<double>(30, kNone), 2);
  EXPECT_THAT(placesOf(worst), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21));
}

/// Groups of twelve sets each: as many of each as 300 have room for.
struct Groups {
  std::size_t groups, each, all;
};
class WorstOfGroups : public WorstOf, public ::testing::WithParamInterface<Groups> {};

TEST_P(WorstOfGroups, HaveFewerEachTheMoreThereAre) {
  const auto [groups, each, all] = GetParam();
  FleetSets sets = this->sets(std::vector<std::string>(12 * groups, "fail"));
  for (std::size_t k = 0; k < sets.size(); ++k) {
    limits.all.push_back({k, 0, 0.2, false});
    sets.at(k).group = static_cast<int>(k % groups);
  }
  const auto worst = worstOf(sets, limits, std::vector<double>(sets.size(), kNone), groups);
  EXPECT_EQ(worst.size(), all);
  std::size_t of_first = 0;
  for (const WorstSet& one : worst) of_first += sets.at(one.place).group == 0 ? 1 : 0;
  EXPECT_EQ(of_first, each);
}

INSTANTIATE_TEST_SUITE_P(Counts, WorstOfGroups,
                         ::testing::Values(Groups{30, 10, 300}, Groups{31, 5, 155}, Groups{61, 3, 183},
                                           Groups{101, 1, 101}, Groups{301, 1, 300}));

}  // namespace
