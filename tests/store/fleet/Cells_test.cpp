#include "store/fleet/Cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"
#include "store/work/UtcTime.h"

namespace {

using namespace polarline::fleet;
using polarline::daysFromDate;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Room for two cells.
constexpr std::size_t kMeasuresOfTwoCells = 20000;

struct CellsDivided : ::testing::Test {
  FleetRows rows;
  FleetMetadata metadata;

  /// Sets of stations (indices of "A", "B", ...) at days of January 2026, which are to ascend.
  FleetSets sets(const std::vector<std::pair<int, int>>& stations_and_days) {
    MetadataColumn station{"station", {}, {}}, model{"model", {std::nullopt}, {}};
    for (const auto& [number, day] : stations_and_days) {
      rows.set(std::string("2026-01-") + (day < 10 ? "0" : "") + std::to_string(day) + "T12:00:00Z");
      station.of_set.push_back(number);
      model.of_set.push_back(0);
    }
    metadata.columns = {station, model};
    return FleetSets(rows.database());
  }
  void extra(const std::string& key, const std::vector<int>& of_set) {
    metadata.columns.push_back({key, {"early", "late"}, {of_set.begin(), of_set.end()}});
  }
};

std::vector<int> groupsOf(const FleetSets& sets) {
  std::vector<int> groups;
  for (const FleetSet& set : sets.all()) groups.push_back(set.group);
  return groups;
}

std::vector<int> cellsOf(const FleetSets& sets) {
  std::vector<int> cells;
  for (const FleetSet& set : sets.all()) cells.push_back(set.cell);
  return cells;
}

TEST_F(CellsDivided, AreAGroupAndADay) {
  FleetSets sets = this->sets({{1, 5}, {0, 5}, {1, 5}, {0, 7}});
  const Cells cells = divide(sets, metadata, 8);
  EXPECT_EQ(cells.period, Period::kDay);
  EXPECT_EQ(cells.first_day, daysFromDate(2026, 1, 5));
  EXPECT_THAT(cells.groups, ElementsAre(ElementsAre(0, 0), ElementsAre(1, 0)));
  EXPECT_THAT(groupsOf(sets), ElementsAre(1, 0, 1, 0));
  EXPECT_THAT(cellsOf(sets), ElementsAre(1, 0, 1, 2));
  ASSERT_EQ(cells.cells.size(), 3U);
  EXPECT_EQ(cells.cells[1].group, 1);
  EXPECT_EQ(cells.cells[2].group, 0);
  EXPECT_EQ(cells.cells[2].day, daysFromDate(2026, 1, 7));
  EXPECT_EQ(cells.left_out_groups, 0U);
}

TEST_F(CellsDivided, LoseFurtherKeysFirst) {
  FleetSets sets = this->sets({{0, 5}, {0, 5}, {0, 6}, {0, 6}});
  extra("shift", {0, 1, 0, 1});  // With it there are four cells.
  const Cells cells = divide(sets, metadata, kMeasuresOfTwoCells);
  EXPECT_EQ(cells.period, Period::kDay);
  EXPECT_THAT(cellsOf(sets), ElementsAre(0, 0, 1, 1));
  ASSERT_EQ(metadata.others.size(), 1U);
  EXPECT_EQ(metadata.others[0].key, "shift");
  EXPECT_EQ(metadata.others[0].values, 2U);
  EXPECT_EQ(metadata.columns.size(), 2U);
}

TEST_F(CellsDivided, ThenSpanLongerPeriods) {
  FleetSets sets = this->sets({{0, 6}, {0, 7}, {0, 11}, {0, 12}});  // From Tuesday to Sunday, and a Monday.
  const Cells cells = divide(sets, metadata, kMeasuresOfTwoCells);
  EXPECT_EQ(cells.period, Period::kWeek);
  EXPECT_EQ(cells.first_day, daysFromDate(2026, 1, 5));
  EXPECT_THAT(cellsOf(sets), ElementsAre(0, 0, 0, 1));
  EXPECT_EQ(cells.cells[1].day, daysFromDate(2026, 1, 12));
}

TEST_F(CellsDivided, LeaveOutTheGroupsOfTheFewestSetsInTheEnd) {
  FleetSets sets = this->sets({{0, 5}, {1, 5}, {2, 6}, {2, 6}, {0, 7}});  // B has one, A and C have two.
  const Cells cells = divide(sets, metadata, kMeasuresOfTwoCells);
  EXPECT_EQ(cells.period, Period::kYear);
  EXPECT_EQ(cells.first_day, daysFromDate(2026, 1, 1));
  EXPECT_EQ(cells.left_out_groups, 1U);
  EXPECT_EQ(cells.left_out_sets, 1U);
  EXPECT_THAT(cells.groups, ElementsAre(ElementsAre(0, 0), ElementsAre(2, 0)));
  EXPECT_THAT(groupsOf(sets), ElementsAre(0, -1, 1, 1, 0));
  EXPECT_THAT(cellsOf(sets), ElementsAre(0, -1, 1, 1, 0));
}

TEST_F(CellsDivided, AreOf2000GroupsAtMost) {
  std::vector<std::pair<int, int>> stations;
  for (int k = 0; k < 2001; ++k) stations.emplace_back(k, 5);
  FleetSets sets = this->sets(stations);
  const Cells cells = divide(sets, metadata, 1);
  EXPECT_EQ(cells.groups.size(), 2000U);
  EXPECT_EQ(cells.cells.size(), 2000U);
  EXPECT_EQ(cells.left_out_groups, 1U);
}

TEST_F(CellsDivided, OfNothingAreNone) {
  FleetSets sets = this->sets({});
  const Cells cells = divide(sets, metadata, 3);
  EXPECT_THAT(cells.groups, IsEmpty());
  EXPECT_THAT(cells.cells, IsEmpty());
}

}  // namespace
