#include "store/fleet/Recurring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct RecurringCauses : ::testing::Test {
  FleetRows rows;
  Cells cells;

  /// A diagnosed set; its number.
  std::int64_t set() { return rows.set("2026-01-05T06:00:00Z", "pass", 1, true); }
  /// Each set's cell, by its number.
  FleetSets sets(const std::vector<int>& cell_of) {
    FleetSets sets(rows.database());
    for (std::size_t k = 0; k < cell_of.size(); ++k)
      sets.at(sets.placeOf(static_cast<std::int64_t>(k) + 1)).cell = cell_of[k];
    return sets;
  }
};

TEST_F(RecurringCauses, AreNotThoseThatPicturesDoNotTellApartAndLeaveOpen) {
  set();
  set();
  rows.cause(1, "rotation_x", -0.03, 0.01);
  rows.cause(1, "baseline_y", 0.0299, 0.01);
  rows.makeAlike(1);
  rows.cause(2, "baseline_y", 0.01, 0.01);
  cells.cells = {{0, 1}};
  const Recurring causes = readRecurring(rows.database(), sets({0, 0}), cells);
  ASSERT_EQ(causes.cells.size(), 2U);
  EXPECT_NEAR(causes.cells[0].mean + causes.cells[1].mean, -0.02, 1e-15) << "of one set each";
}

TEST_F(RecurringCauses, AreMeansOfACellAndTotalsOfAGroup) {
  for (int k = 0; k < 5; ++k) set();
  rows.cause(1, "rotation_x", 0.04, 0.003);
  rows.cause(2, "rotation_x", 0.06, 0.004);
  rows.cause(3, "rotation_x", 0.05, 0.002);
  rows.cause(3, "k1", -0.01, 0.001);
  rows.cause(4, "k1", 0.5, 0.001);
  rows.cause(5, "baseline_y", 9.0, 1.0);
  cells.cells = {{0, 1}, {0, 2}, {1, 2}};
  const Recurring causes = readRecurring(rows.database(), sets({0, 0, 1, 2, -1}), cells);

  EXPECT_THAT(causes.names, ElementsAre("rotation_x", "k1"));
  EXPECT_THAT(causes.units, ElementsAre("deg", "deg"));
  ASSERT_EQ(causes.cells.size(), 4U);
  const CauseCell& first = causes.cells[0];
  EXPECT_EQ(first.cell, 0U);
  EXPECT_EQ(first.sets, 2U);
  EXPECT_NEAR(first.mean, 0.05, 1e-15);
  EXPECT_NEAR(first.sd, 0.02 / std::sqrt(2.0), 1e-15);
  EXPECT_NEAR(first.error, std::sqrt((9e-6 + 16e-6) / 2.0), 1e-15);
  EXPECT_EQ(causes.cells[1].cause, 0U);
  EXPECT_EQ(causes.cells[1].sd, 0.0) << "of one set";
  EXPECT_EQ(causes.cells[2].cause, 1U);
  EXPECT_EQ(causes.cells[2].mean, -0.01);
  EXPECT_EQ(causes.cells[3].cell, 2U);

  ASSERT_EQ(causes.totals.size(), 3U);
  EXPECT_EQ(causes.totals[0].sets, 3U) << "rotation_x of group 0";
  EXPECT_EQ(causes.totals[1].sets, 1U);
  EXPECT_EQ(causes.totals[2].group, 1U);
  EXPECT_FALSE(causes.are_rare_left_out);
}

TEST_F(RecurringCauses, EquallyFrequentOnesStandByName) {
  set();
  rows.cause(1, "rotation_z", 1.0, 0.1);
  rows.cause(1, "baseline_z", 1.0, 0.1);
  cells.cells = {{0, 1}};
  EXPECT_THAT(readRecurring(rows.database(), sets({0}), cells).names, ElementsAre("baseline_z", "rotation_z"));
}

TEST_F(RecurringCauses, OfNothingAreNone) {
  const Recurring causes = readRecurring(rows.database(), sets({}), cells);
  EXPECT_THAT(causes.names, IsEmpty());
  EXPECT_THAT(causes.cells, IsEmpty());
}

TEST_F(RecurringCauses, RareOnesGoFirstWhereThereIsNoRoomForAll) {
  // 15,000 rows have room. In each of 5,001 cells a set tells three causes; in the first, one of six sets tells a
  // fourth.
  constexpr int kCells = 5001;
  std::vector<int> cell_of;
  for (int k = 0; k < kCells; ++k) {
    const auto number = set();
    cell_of.push_back(k);
    cells.cells.push_back({0, k});
    for (const char* name : {"rotation_x", "rotation_y", "rotation_z"}) rows.cause(number, name, 0.01, 0.001);
  }
  for (int k = 0; k < 5; ++k) {
    const auto number = set();
    cell_of.push_back(0);
    if (k == 0)
      rows.cause(number, "k1", 0.1, 0.01);
    else
      for (const char* name : {"rotation_x", "rotation_y", "rotation_z"}) rows.cause(number, name, 0.01, 0.001);
  }
  const Recurring causes = readRecurring(rows.database(), sets(cell_of), cells);
  EXPECT_TRUE(causes.are_rare_left_out);
  EXPECT_EQ(causes.left_out, 3U) << "15,003 are left without the rare one";
  ASSERT_EQ(causes.cells.size(), 15000U);
  EXPECT_EQ(causes.cells[0].sets, 5U);
  for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(causes.cells[k].cell, 0U);
  EXPECT_EQ(causes.cells[3].cell, 1U);
  EXPECT_EQ(causes.cells.back().cell, 4999U);
  ASSERT_EQ(causes.names.size(), 4U);
  EXPECT_EQ(causes.totals.back().sets, 1U) << "the totals of groups are whole";
}

}  // namespace
