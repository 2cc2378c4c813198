#include "store/fleet/Courses.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::ElementsAre;
using ::testing::IsNan;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// Sets a minute apart from midnight on, in groups of a station, a model and a shift.
struct CoursesOf : ::testing::Test {
  FleetRows rows;
  Cells cells;
  std::size_t left_out = 0;

  FleetSets sets(const std::vector<int>& groups) {
    for (std::size_t k = 0; k < groups.size(); ++k) {
      rows.set(fmt::format("2026-01-05T{:02}:{:02}:00Z", k / 60, k % 60));
    }
    FleetSets sets(rows.database());
    for (std::size_t k = 0; k < groups.size(); ++k) sets.at(k).group = groups[k];
    cells.first_day = dayOf(groups.empty() ? 0 : sets.at(0).time);
    return sets;
  }
};

TEST_F(CoursesOf, FewSetsAreTheSetsInTheOrderOfTime) {
  FleetSets sets = this->sets({0, 0, -1, 0, 0});
  sets.at(3).ending = Ending::kError;
  cells.groups = {{0, 0}};
  const auto courses = coursesOf(sets, cells, {{1.0, kNone, 3.0, 4.0, 5.0}, {10, 20, 30, 40, 50}}, left_out);
  ASSERT_EQ(courses.size(), 1U);
  EXPECT_EQ(courses[0].each, 1U);
  EXPECT_EQ(courses[0].waiting, 0U);
  EXPECT_THAT(courses[0].minutes, ElementsAre(0, 1, 4));
  EXPECT_EQ(courses[0].begins, courses[0].minutes);
  ASSERT_EQ(courses[0].values.size(), 2U);
  EXPECT_THAT(courses[0].values[0], ElementsAre(1.0, IsNan(), 5.0));
  EXPECT_THAT(courses[0].values[1], ElementsAre(10.0, 20.0, 50.0));
  EXPECT_EQ(left_out, 0U);
}

TEST_F(CoursesOf, ManySetsAreMeansOfAsManyInARow) {
  FleetSets sets = this->sets(std::vector<int>(250, 0));
  cells.groups = {{0, 0}};
  std::vector<double> values;
  for (int k = 0; k < 250; ++k) values.push_back(k);
  values[4] = kNone;  // Of the second point: (3 + 5) / 2.
  const auto courses = coursesOf(sets, cells, {values}, left_out);
  ASSERT_EQ(courses.size(), 1U);
  EXPECT_EQ(courses[0].each, 3U);  // Two would make 125 points, of which there is room for 100.
  EXPECT_EQ(courses[0].waiting, 1U);
  ASSERT_EQ(courses[0].minutes.size(), 83U);
  EXPECT_EQ(courses[0].begins[0], 0);
  EXPECT_EQ(courses[0].minutes[0], 2);
  EXPECT_EQ(courses[0].begins[82], 246);
  EXPECT_EQ(courses[0].minutes[82], 248);
  EXPECT_EQ(courses[0].values[0][0], 1.0);
  EXPECT_EQ(courses[0].values[0][1], 4.0);
  EXPECT_EQ(courses[0].values[0][82], 247.0);
}

TEST_F(CoursesOf, GroupsOfAStationAndModelHaveEqualPoints) {
  std::vector<int> groups(150, 0);
  groups.insert(groups.end(), 100, 1);
  groups.insert(groups.end(), 2, 2);
  groups.insert(groups.end(), 7, 3);
  FleetSets sets = this->sets(groups);
  cells.groups = {{0, 0, 0}, {0, 0, 1}, {0, 0, 2}, {1, 0, 0}};
  const auto courses = coursesOf(sets, cells, {std::vector<double>(groups.size(), 1.0)}, left_out);
  // 75 + 50 + 1 points of two, 50 + 33 of three, of which the third group has too few.
  ASSERT_EQ(courses.size(), 3U);
  EXPECT_EQ(courses[0].each, 3U);
  EXPECT_EQ(courses[1].each, 3U);
  EXPECT_EQ(courses[1].waiting, 1U);
  EXPECT_EQ(courses[2].group, 3U);
  EXPECT_EQ(courses[2].each, 1U);
}

TEST_F(CoursesOf, MoreThan400StationsAndModelsLoseThoseOfTheFewestSets) {
  std::vector<int> groups;
  for (int k = 0; k < 401; ++k) {
    groups.push_back(k);
    if (k != 7) groups.push_back(k);
    cells.groups.push_back({k, 0});
  }
  FleetSets sets = this->sets(groups);
  const auto courses = coursesOf(sets, cells, {std::vector<double>(groups.size(), 1.0)}, left_out);
  EXPECT_EQ(left_out, 1U);
  ASSERT_EQ(courses.size(), 400U);
  EXPECT_EQ(courses[6].group, 6U);
  EXPECT_EQ(courses[7].group, 8U);
}

}  // namespace
