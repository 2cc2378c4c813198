#include "Tallowfen/src/numbering/CentreGrid.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using kestrune::CentreGrid;
using Points = std::vector<cv::Point2d>;

std::size_t nearestByTrial(const Points& centres, const cv::Point2d& point) {
  std::size_t best = 0;
  for (std::size_t i = 1; i < centres.size(); ++i) {
    const cv::Point2d offset = centres[i] - point, kept = centres[best] - point;
    if (offset.dot(offset) < kept.dot(kept)) best = i;
  }
  return best;
}

class CentreGridOf : public testing::TestWithParam<std::size_t> {};

TEST_P(CentreGridOf, FindsWhatATrialOfAllFinds) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-100, 100);
  Points centres(GetParam());
  for (cv::Point2d& centre : centres) centre = {coordinate(random), coordinate(random)};
  const CentreGrid grid(centres);
  for (int i = 0; i < 500; ++i) {
    const cv::Point2d point(1.3 * coordinate(random), 1.3 * coordinate(random));
    ASSERT_EQ(grid.nearest(point), nearestByTrial(centres, point));
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, CentreGridOf, testing::Values(1, 2, 3, 4, 7, 8, 100, 1295));

// Cells are laid over all centres: most of them are empty here, or hold nearly all.
TEST(CentreGrid, FindsWhatATrialOfAllFindsWhereCentresAreNotSpread) {
  Points line, crowd, diagonal;
  for (int i = 0; i < 100; ++i) {
    line.emplace_back(7.0 * i, 50.0);
    crowd.emplace_back(0.01 * (i % 10), 0.01 * (i / 10));
    diagonal.emplace_back(3.0 * i, 3.0 * i);
  }
  crowd.emplace_back(5000.0, 3000.0);
  const Points same(9, {4.0, 5.0}), huge = {{-1e300, 0.0}, {1e300, 0.0}, {0.0, 2e300}},
                                    beyond = {{-1.7e308, 0}, {1.7e308, 1}};
  for (const Points& centres : {line, crowd, diagonal, same, huge, beyond}) {
    const CentreGrid grid(centres);
    std::mt19937 random(9);
    std::uniform_real_distribution<double> coordinate(-100, 800);
    for (int i = 0; i < 300; ++i) {
      const cv::Point2d point(coordinate(random), coordinate(random));
      ASSERT_EQ(grid.nearest(point), nearestByTrial(centres, point));
    }
    for (const cv::Point2d& centre : centres) ASSERT_EQ(grid.nearest(centre), nearestByTrial(centres, centre));
  }
}

// The cell is that of (9, 3), and the nearest one in the cells around it is as far as the next cells' edge.
TEST(CentreGrid, ADotOnACellsEdgeIsNotTakenForFarther) {
  Points centres;
  for (const int x : {15, 13, 14, 4, 7, 0, 12, 9, 16, 8, 9, 12, 1, 16, 0, 10, 3, 14, 6, 13}) centres.emplace_back(x, 3);
  EXPECT_EQ(CentreGrid(centres).nearest({11, 3}), 6U);
}

// Products and quotients of such extents are infinite, or 0.
TEST(CentreGrid, ExtentsOutOfProportionAreOneCell) {
  EXPECT_EQ(CentreGrid({{-1.7e308, 0}, {0, 1e10}}).nearest({1.7e308, 0}), 0U);
  EXPECT_EQ(CentreGrid({{-1.7e308, 0}, {1.7e308, 1}}).nearest({1e308, 0}), 0U) << "both are too far for a number";
  Points close;
  for (int i = 0; i < 50000; ++i) close.emplace_back(1e-205 * i, 1e-205 * (49999 - i));
  EXPECT_EQ(CentreGrid(close).nearest({0, 0}), 0U);
  EXPECT_EQ(CentreGrid({{1e15, 1e15}, {1e15 + 1, 1e15}, {1e15 + 3, 1e15 + 2}}).nearest({1e15 + 2, 1e15}), 1U);
}

// On a lattice most points share their coordinates, and half-way points have up to four nearest centres.
TEST(CentreGrid, LowerPositionWinsAtEqualDistance) {
  Points centres;
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 11; ++x) centres.emplace_back(x, y);
  }
  centres.push_back(centres[40]);
  const CentreGrid grid(centres);
  for (double y = -1; y < 10; y += 0.5) {
    for (double x = -1; x < 12; x += 0.5) ASSERT_EQ(grid.nearest({x, y}), nearestByTrial(centres, {x, y}));
  }
}

TEST(CentreGrid, NoCentresFindNothing) { EXPECT_FALSE(CentreGrid({}).nearest({0, 0})); }

TEST(CentreGrid, PassesOverWhatIsNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
  const CentreGrid grid({{nan, 0}, {50, 60}, {0, infinity}});
  EXPECT_EQ(grid.nearest({0, 0}), 1U);
  EXPECT_FALSE(grid.nearest({nan, 0}));
  EXPECT_FALSE(CentreGrid({{nan, nan}}).nearest({0, 0}));
}

}  // namespace
