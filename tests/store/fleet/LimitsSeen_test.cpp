#include "store/fleet/LimitsSeen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

TEST(LimitsSeenRead, AreThoseOfEachSetWithWhatTheySay) {
  FleetRows rows;
  const auto later = rows.set("2026-01-06T00:00:00Z");
  const auto earlier = rows.set("2026-01-05T00:00:00Z");
  rows.limit(later, "dy_means<=0.1", 0.2, false);
  rows.limit(later, "|tri_dis[0]|<0.5", kNone, false);
  rows.limit(later, "dy_means<=0.1", 0.3, false);  // The same twice.
  rows.limit(earlier, "dy_means<=0.1", 0.05, true);
  rows.limit(earlier, "summary.dy_max.mean>=0.01", 0.02, true);
  rows.limit(earlier, "what later versions say", 1.0, true);
  const FleetSets sets(rows.database());
  const LimitsSeen seen = readLimitsSeen(rows.database(), sets);

  ASSERT_EQ(seen.all.size(), 6U);
  EXPECT_EQ(seen.all[0].place, 1U) << "of the set that was added first, which is the later one";
  EXPECT_EQ(seen.all[0].value, 0.2);
  EXPECT_FALSE(seen.all[0].holds);
  EXPECT_TRUE(std::isnan(seen.all[1].value));
  EXPECT_EQ(seen.all[3].place, 0U);
  EXPECT_TRUE(seen.all[3].holds);

  const LimitRule& means = seen.rules[seen.all[0].rule];
  EXPECT_EQ(means.text, "dy_means<=0.1");
  EXPECT_EQ(means.figure, "dy_means");
  EXPECT_TRUE(means.is_upper);
  EXPECT_FALSE(means.is_absolute);
  EXPECT_EQ(means.bound, 0.1);
  EXPECT_EQ(means.sets, 2U) << "a set counts once";
  const LimitRule& four = seen.rules[seen.all[1].rule];
  EXPECT_EQ(four.figure, "tri_dis[0]");
  EXPECT_TRUE(four.is_absolute);
  const LimitRule& summary = seen.rules[seen.all[4].rule];
  EXPECT_EQ(summary.statistic, "mean");
  EXPECT_FALSE(summary.is_upper);
  EXPECT_EQ(seen.rules[seen.all[5].rule].figure, "");
}

/// A value at a bound, and how far it is, by hand.
struct Far {
  bool is_absolute, is_upper;
  double bound, value;
  std::optional<double> times;
};

class LimitsSeenTimes : public ::testing::TestWithParam<Far> {};

TEST_P(LimitsSeenTimes, IsOneAtTheBoundAndMoreBeyond) {
  const Far& far = GetParam();
  const auto times = timesOf({"text", "figure", "", far.is_absolute, far.is_upper, far.bound, 1}, far.value);
  ASSERT_EQ(times.has_value(), far.times.has_value());
  EXPECT_DOUBLE_EQ(times.value_or(0.0), far.times.value_or(0.0));
}

INSTANTIATE_TEST_SUITE_P(Values, LimitsSeenTimes,
                         ::testing::Values(Far{false, true, 0.5, 0.5, 1.0}, Far{false, true, 0.5, 0.25, 0.5},
                                           Far{false, true, 0.5, 1.0, 2.0},
                                           Far{false, true, 0.5, -1.0,
                                               -2.0},  // It holds, however far it is on the other side.
                                           Far{true, true, 0.5, -1.0, 2.0}, Far{false, true, 1e-9, 5.0, 1000.0},
                                           Far{false, false, 4.0, 4.0, 1.0}, Far{false, false, 4.0, 1.0, 4.0},
                                           Far{false, false, 4.0, 8.0, 0.5}, Far{false, false, 4.0, 0.0, 1000.0},
                                           Far{true, false, 4.0, -8.0, 0.5}, Far{false, true, 0.0, 0.0, 1.0},
                                           Far{false, true, 0.0, 3.0, 4.0}, Far{false, true, -2.0, -2.0, 1.0},
                                           Far{false, true, -2.0, -3.0, 0.5}, Far{false, false, -2.0, -3.0, 1.5},
                                           Far{false, true, 0.5, kNone, std::nullopt}));

TEST(LimitsSeenTimes, AreNoneOfALimitThatNobodyCouldRead) {
  EXPECT_EQ(timesOf({"text", "", "", false, true, 0.5, 1}, 0.1), std::nullopt);
}

}  // namespace
