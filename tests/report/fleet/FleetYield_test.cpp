#include "report/fleet/FleetYield.h"

#include <gtest/gtest.h>

#include "MadeFleet.h"

namespace polarline {
namespace {

struct Interval {
  std::size_t passed;
  std::size_t of;
  double low;
  double high;
};

class FleetYieldInterval : public ::testing::TestWithParam<Interval> {};

TEST_P(FleetYieldInterval, IsThatOfNewcombesTableOf1998) {
  const Interval& wanted = GetParam();
  const auto share = yieldOf({wanted.passed, wanted.of - wanted.passed, 5, 7});
  ASSERT_TRUE(share);
  EXPECT_DOUBLE_EQ(share->share, static_cast<double>(wanted.passed) / static_cast<double>(wanted.of));
  EXPECT_NEAR(share->low, wanted.low, 5e-5);
  EXPECT_NEAR(share->high, wanted.high, 5e-5);
}

INSTANTIATE_TEST_SUITE_P(Table, FleetYieldInterval,
                         ::testing::Values(Interval{81, 263, 0.2553, 0.3662}, Interval{15, 148, 0.0624, 0.1605},
                                           Interval{0, 20, 0.0, 0.1611}, Interval{1, 29, 0.0061, 0.1718},
                                           Interval{20, 20, 0.8389, 1.0}));

TEST(FleetYieldOf, NothingJudgedIsNone) { EXPECT_FALSE(yieldOf({0, 0, 3, 4})); }

TEST(FleetYieldCounts, AreSumsOfTheCells) {
  const Fleet fleet = readFleet(made_fleet::document());
  const FleetCounts counts = countsOf(fleet.cells, {0, 1, 2, 3});
  EXPECT_EQ(counts.passed, 4U);
  EXPECT_EQ(counts.failed, 1U);
  EXPECT_EQ(counts.unjudged, 1U);
  EXPECT_EQ(counts.errors, 1U);
  EXPECT_EQ(counts.sets(), 7U);
  EXPECT_EQ(counts.judged(), 5U);
}

TEST(FleetYieldLately, IsTheLastDayAgainst28DaysBefore) {
  auto data = made_fleet::json();
  data["cells"]["day"] = {0, 30, 29, 58};
  const FleetLately lately = latelyOf(readFleet(made_fleet::documentOf(data)));
  EXPECT_EQ(lately.day, 58U);
  EXPECT_EQ(lately.last, (std::vector<std::size_t>{3}));
  EXPECT_EQ(lately.before, (std::vector<std::size_t>{1}));
}

TEST(FleetYieldLately, LooksFartherBackInLongerPeriods) {
  for (const auto& [period, ago] : {std::pair("week", 84), std::pair("month", 370), std::pair("year", 1990)}) {
    auto data = made_fleet::json();
    data["period"] = period;
    data["cells"]["day"] = {0, 0, 40, 40 + ago};
    const FleetLately lately = latelyOf(readFleet(made_fleet::documentOf(data)));
    EXPECT_EQ(lately.before, (std::vector<std::size_t>{2})) << period;
  }
}

TEST(FleetYieldDate, CountsFromTheFirstDay) {
  Fleet fleet;
  fleet.first_day = "2026-11-20";
  EXPECT_EQ(dateOf(fleet, 0), "2026-11-20");
  EXPECT_EQ(dateOf(fleet, 42), "2027-01-01");
  for (const char* text : {"", "2026-13-01", "2026-1x-01", "20261-1-01"}) {
    fleet.first_day = text;
    EXPECT_EQ(dateOf(fleet, 1), "") << text;
  }
}

}  // namespace
}  // namespace polarline
