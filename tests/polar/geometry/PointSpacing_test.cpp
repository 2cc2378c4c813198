#include "polar/geometry/PointSpacing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// 2 rows of 3 points, ids 0 to 5: 10 apart along the rows, 15 from row to row.
std::vector<CloudPoint> grid() {
  return {{0, 0, 0, 0, 0, 9},  {1, 0, 0, 10, 0, 9},  {2, 0, 0, 20, 0, 9},
          {3, 0, 0, 0, 15, 9}, {4, 0, 0, 10, 15, 9}, {5, 0, 0, 20, 15, 9}};
}

CloudPoint withDistances(float row_dist, float col_dist) { return {0, row_dist, col_dist, 0, 0, 0}; }

TEST(PointSpacing, ARowsEndMeetsTheNextRowsStart) {
  std::vector<CloudPoint> cloud = grid();
  measureSpacing(cloud, 3);
  const std::vector<float> rows = {10, 10, 25, 10, 10, 0};
  const std::vector<float> columns = {15, 15, 15, 0, 0, 0};
  for (std::size_t i = 0; i < cloud.size(); ++i) {
    EXPECT_EQ(cloud[i].row_dist, rows[i]) << i;
    EXPECT_EQ(cloud[i].col_dist, columns[i]) << i;
  }
}

TEST(PointSpacing, FiguresOfAGridByHand) {
  std::vector<CloudPoint> cloud = grid();
  measureSpacing(cloud, 3);
  const PointSpacing spacing = spacingFigures(cloud, 10.0F);
  EXPECT_EQ(spacing.row.mean_error, 3.0F);  // 65 / 5
  EXPECT_EQ(spacing.row.variance, 36.0F);   // (4 * 3^2 + 12^2) / 5
  EXPECT_EQ(spacing.row.min, 0.0F);
  EXPECT_EQ(spacing.row.max, 15.0F);
  EXPECT_EQ(spacing.column.mean_error, 5.0F);
  EXPECT_EQ(spacing.column.variance, 0.0F);
  EXPECT_EQ(spacing.column.min, 5.0F);
  EXPECT_EQ(spacing.column.max, 5.0F);
  EXPECT_EQ(spacing.all.mean_error, 3.75F);  // 110 / 8
  EXPECT_EQ(spacing.all.variance, 23.4375F);
  EXPECT_EQ(spacing.all.min, 0.0F);
  EXPECT_EQ(spacing.all.max, 15.0F);
}

TEST(PointSpacing, AMissingIdBreaksTheRow) {
  std::vector<CloudPoint> cloud = grid();
  cloud.erase(cloud.begin() + 1);
  measureSpacing(cloud, 3);
  EXPECT_EQ(cloud[0].row_dist, 0.0F);
  EXPECT_EQ(cloud[0].col_dist, 15.0F);
  EXPECT_EQ(cloud[1].row_dist, 25.0F);
}

TEST(PointSpacing, ColumnNeighbourIsSoughtFromTheStartOfTheList) {
  std::vector<CloudPoint> cloud = {{7, 0, 0, 0, 0, 0}, {4, 0, 0, 3, 4, 0}, {7, 0, 0, 100, 0, 0}};
  measureSpacing(cloud, 3);
  EXPECT_EQ(cloud[1].col_dist, 5.0F);
}

TEST(PointSpacing, IdsAtTheEndOfTheirRangeHaveNoNeighbours) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kFirst = std::numeric_limits<std::int32_t>::min();
  std::vector<CloudPoint> cloud = {{kLast, 0, 0, 1, 1, 1}, {kFirst, 0, 0, 2, 2, 2}};
  measureSpacing(cloud, 1);
  EXPECT_EQ(cloud[0].row_dist, 0.0F);
  EXPECT_EQ(cloud[0].col_dist, 0.0F);
}

TEST(PointSpacing, AZeroDistanceCountsAsNoDistance) {
  std::vector<CloudPoint> cloud = {{0, 0, 0, 5, 5, 5}, {1, 0, 0, 5, 5, 5}, {2, 0, 0, 5, 5, 9}};
  measureSpacing(cloud, 0);  // Every point is its own neighbour then.
  const PointSpacing spacing = spacingFigures(cloud, 3.0F);
  EXPECT_EQ(spacing.row.mean_error, 1.0F);
  EXPECT_EQ(spacing.row.min, 1.0F);
  EXPECT_TRUE(std::isnan(spacing.column.mean_error));
}

TEST(PointSpacing, DistancesAreInSinglePrecision) {
  std::vector<CloudPoint> cloud = {{0, 0, 0, 0, 0, 0}, {1, 0, 0, 1, 1, 0}};
  measureSpacing(cloud, 2);
  EXPECT_EQ(cloud[0].row_dist, std::sqrt(2.0F));
}

TEST(PointSpacing, SumsRowsBeforeColumnsInSinglePrecision) {
  // Rows first: 2^24 swallows each one behind it. Columns first, the two ones would count.
  const std::vector<CloudPoint> cloud = {withDistances(0, 1), withDistances(0, 1), withDistances(16777216, 0)};
  EXPECT_EQ(spacingFigures(cloud, 0.0F).all.mean_error, 16777216.0F / 3.0F);
}

TEST(PointSpacing, EmptyListsHaveNoMeanButStartingExtremes) {
  const PointSpacing spacing = spacingFigures({}, 10.0F);
  EXPECT_TRUE(std::isnan(spacing.all.mean_error));
  EXPECT_TRUE(std::isnan(spacing.row.variance));
  EXPECT_EQ(spacing.all.min, 100.0F);
  EXPECT_EQ(spacing.all.max, 0.0F);
}

TEST(PointSpacing, SmallestErrorStartsAtAHundred) {
  EXPECT_EQ(spacingFigures({withDistances(500, 500)}, 10.0F).all.min, 100.0F);
}

struct LargestCase {
  const char* name;
  std::vector<CloudPoint> cloud;  // True step 10.
  float largest;
};
class PointSpacingLargestOfAll : public ::testing::TestWithParam<LargestCase> {};

TEST_P(PointSpacingLargestOfAll, ComparesTheRowsLargestWithTheColumnsSmallest) {
  EXPECT_EQ(spacingFigures(GetParam().cloud, 10.0F).all.max, GetParam().largest);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PointSpacingLargestOfAll,
    ::testing::Values(
        LargestCase{"RowsAboveColumnsSmallestHideTheColumnsLargest", {withDistances(16, 15), withDistances(16, 30)}, 6},
        LargestCase{"RowsBelowColumnsSmallest", {withDistances(14, 15), withDistances(14, 30)}, 20},
        LargestCase{"EqualTakesTheColumns", {withDistances(15, 15), withDistances(15, 30)}, 20},
        LargestCase{"OnlyColumnsTakeTheColumns", {withDistances(0, 30)}, 20},
        LargestCase{"OnlyRowsBelowTheStartOfAHundredGiveNothing", {withDistances(30, 0)}, 0}),
    [](const auto& test) { return test.param.name; });

}  // namespace
