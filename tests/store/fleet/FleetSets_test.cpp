#include "store/fleet/FleetSets.h"

#include <gtest/gtest.h>

#include "store/fleet/FleetRows.h"

namespace {

using polarline::fleet::Ending;
using polarline::fleet::FleetSets;

TEST(FleetSetsRead, StandInTheOrderOfTimeAndAreFoundByTheirNumbers) {
  FleetRows rows;
  const auto last = rows.set("2026-01-06T06:00:00Z");
  const auto first = rows.set("1970-01-02T00:00:01Z", "fail", 1, true);
  const FleetSets sets(rows.database());
  ASSERT_EQ(sets.size(), 2U);
  EXPECT_EQ(sets.at(0).id, first);
  EXPECT_EQ(sets.at(0).time, 86401);
  EXPECT_TRUE(sets.at(0).is_diagnosed);
  EXPECT_EQ(sets.at(0).pairs, 2);
  EXPECT_EQ(sets.at(0).finished, 1);
  EXPECT_EQ(sets.placeOf(first), 0U);
  EXPECT_EQ(sets.placeOf(last), 1U);
}

TEST(FleetSetsRead, EndAsAYieldCountsThem) {
  FleetRows rows;
  rows.set("2026-01-01T00:00:00Z", "pass", 2);
  rows.set("2026-01-02T00:00:00Z", "pass", 0);
  rows.set("2026-01-03T00:00:00Z", "fail", 1);
  rows.set("2026-01-04T00:00:00Z", "error", 1);
  const FleetSets sets(rows.database());
  EXPECT_EQ(sets.at(0).ending, Ending::kPassed);
  EXPECT_EQ(sets.at(1).ending, Ending::kUnjudged);
  EXPECT_EQ(sets.at(2).ending, Ending::kFailed);
  EXPECT_EQ(sets.at(3).ending, Ending::kError);
}

TEST(FleetSetsRead, CountThoseOfNoTime) {
  FleetRows rows;
  rows.set("2026-01-01T00:00:00Z", "pass", 1, false, false);
  rows.set("2026-01-02T00:00:00Z");
  EXPECT_EQ(FleetSets(rows.database()).withoutTime(), 1U);
}

}  // namespace
