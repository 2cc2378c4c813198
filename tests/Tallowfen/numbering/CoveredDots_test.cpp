#include "Tallowfen/src/numbering/CoveredDots.h"

#include <gmock/gmock.h>

#include "BoardView.h"
#include "Tallowfen/src/numbering/ModelCoordinates.h"

namespace {

using kestrune::addCoveredDots;
using kestrune::CellMap;
using kestrune::Ellipse;
using kestrune::ParallelogramCheck;
using testing::ElementsAre;
using Point = cv::Point2f;

constexpr int kCols = 9;

// A marker in cell (4, 4) and its diagonal neighbours, at 10 model units and 20 pixels a step. The list: the marker,
// upper left, upper right, lower left, lower right.
class CoveredDots : public testing::Test {
 protected:
  CoveredDots() {
    add(4, 4);
    for (const auto& [column, row] : {std::pair(3, 3), {5, 3}, {3, 5}, {5, 5}}) add(column, row);
  }

  void add(int column, int row, cv::Point2d displacement = {0, 0}) {
    Ellipse ellipse;
    ellipse.x = 20 * column + displacement.x;
    ellipse.y = 20 * row + displacement.y;
    ellipse.semi_a = ellipse.semi_b = 6;
    all.push_back(ellipse);
    grid.emplace_back(10 * column, 10 * row);
  }

  void drop(std::size_t position) {
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(position));
    grid.erase(grid.begin() + static_cast<std::ptrdiff_t>(position));
  }

  CellMap run() {
    CellMap cells(kCols, grid);
    addCoveredDots({{40, 40}}, cells, all);
    return cells;
  }

  static CellMap::Cell cell(int column, int row) { return row * kCols + column; }

  std::vector<Ellipse> all;
  std::vector<cv::Point> grid;
};

TEST_F(CoveredDots, StandAtTheMidpointsOfTheDiagonalNeighbours) {
  all[1].x = 60.5;
  all[1].y = 61.25;
  const CellMap cells = run();
  ASSERT_EQ(all.size(), 9U);
  const auto centre = [&](int column, int row) {
    EXPECT_EQ(cells.count(cell(column, row)), 1U);
    const Ellipse& ellipse = all[cells.first(cell(column, row))];
    return cv::Point2d(ellipse.x, ellipse.y);
  };
  EXPECT_EQ(centre(4, 3), cv::Point2d(80.25, 60.625));
  EXPECT_EQ(centre(3, 4), cv::Point2d(60.25, 80.625));
  EXPECT_EQ(centre(5, 4), cv::Point2d(100, 80));
  EXPECT_EQ(centre(4, 5), cv::Point2d(80, 100));
  // Above, left, right, below, in this order behind the list.
  EXPECT_EQ(cells.first(cell(4, 3)), 5U);
  EXPECT_EQ(cells.first(cell(4, 5)), 8U);
}

TEST_F(CoveredDots, HaveACentreAndNothingElse) {
  run();
  const Ellipse& made = all.at(5);
  EXPECT_EQ(made.id, -1);
  EXPECT_EQ(made.point_class, kestrune::morvenkit::kDot);
  EXPECT_EQ(made.sigma, 0);
  EXPECT_EQ(made.semi_a, 0);
  EXPECT_EQ(made.semi_b, 0);
  EXPECT_EQ(made.angle, 0);
  EXPECT_EQ(made.roundness, 0);
  EXPECT_TRUE(made.edge_points.empty());
}

TEST_F(CoveredDots, OfACrowdedDiagonalCellTheFirstThatFitsStays) {
  drop(1);             // Now in the upper left cell, behind the others, in the order of the list:
  add(3, 3, {9, -9});  // one that tips the sides by more than 5 degrees,
  add(3, 3, {1, 0});   // one that fits,
  add(3, 3, {0, 0});   // one that would fit best.
  const CellMap cells = run();
  ASSERT_EQ(all.size(), 11U);
  EXPECT_THAT(cells.allOf(cell(3, 3)), ElementsAre(5));
  EXPECT_EQ(all[7].x, (61 + 100) / 2.0);
}

TEST_F(CoveredDots, CrowdedCellInWhichNoneFitsLeavesTheMarker) {
  drop(1);
  add(3, 3, {9, -9});
  add(3, 3, {-9, 9});
  const CellMap cells = run();
  EXPECT_EQ(all.size(), 6U);
  EXPECT_EQ(cells.count(cell(3, 3)), 2U);
}

TEST_F(CoveredDots, TwoCrowdedCellsLeaveTheMarker) {
  add(3, 3);
  add(5, 5);
  run();
  EXPECT_EQ(all.size(), 7U);
}

TEST_F(CoveredDots, EmptyDiagonalCellLeavesTheMarker) {
  for (int missing = 0; missing < 4; ++missing) {
    CoveredDots::all.clear();
    grid.clear();
    add(4, 4);
    int index = 0;
    for (const auto& [column, row] : {std::pair(3, 3), {5, 3}, {3, 5}, {5, 5}}) {
      if (index++ != missing) add(column, row);
    }
    run();
    EXPECT_EQ(all.size(), 4U);
  }
}

TEST_F(CoveredDots, EmptyCellBesideACrowdedOneLeavesTheMarker) {
  drop(4);
  add(3, 3);
  run();
  EXPECT_EQ(all.size(), 5U);
}

TEST_F(CoveredDots, MarkerMustStandAloneInItsCell) {
  add(4, 4);
  run();
  EXPECT_EQ(all.size(), 6U);
  all.erase(all.begin());
  grid.erase(grid.begin());
  all.pop_back();
  grid.pop_back();
  run();
  EXPECT_EQ(all.size(), 4U) << "nor may its cell be empty";
}

// Each marker's dots are entered before the next marker is looked at.
TEST_F(CoveredDots, MarkersFollowOneAnother) {
  CellMap cells(kCols, grid);
  addCoveredDots({{40, 40}, {40, 40}, {70, 70}}, cells, all);
  EXPECT_EQ(all.size(), 13U) << "twice four: the marker's own cell is still its own";
}

TEST(CoveredDotsParallelogram, MeanMustLieWithinFivePixels) {
  const Point ul(0, 0), ll(0, 40), ur(40, 0), lr(40, 40);
  EXPECT_TRUE(ParallelogramCheck({20, 20}, ul, ll, ur, lr));
  EXPECT_TRUE(ParallelogramCheck({24.99F, 20}, ul, ll, ur, lr));
  EXPECT_FALSE(ParallelogramCheck({25, 20}, ul, ll, ur, lr)) << "five pixels are too far";
  EXPECT_FALSE(ParallelogramCheck({23.6F, 16.4F}, ul, ll, ur, lr));
}

// tan(4.9 degrees) * 40 = 3.429, tan(5.1 degrees) * 40 = 3.570. Moving both ends of the lower side keeps the mean near.
TEST(CoveredDotsParallelogram, OppositeSidesMayDifferByFiveDegrees) {
  EXPECT_TRUE(ParallelogramCheck({20, 20}, {0, 0}, {0, 40}, {40, 0}, {40, 43.429F}));
  EXPECT_FALSE(ParallelogramCheck({20, 20}, {0, 0}, {0, 40}, {40, 0}, {40, 43.570F}));
  EXPECT_TRUE(ParallelogramCheck({20, 20}, {0, 0}, {0, 40}, {40, 0}, {43.429F, 40}));
  EXPECT_FALSE(ParallelogramCheck({20, 20}, {0, 0}, {0, 40}, {40, 0}, {43.570F, 40}));
}

TEST(CoveredDotsParallelogram, SlantedParallelogramPasses) {
  EXPECT_TRUE(ParallelogramCheck({30, 20}, {0, 0}, {20, 40}, {40, 0}, {60, 40}));
}

TEST(CoveredDotsParallelogram, CoincidingCornersFail) {
  EXPECT_FALSE(ParallelogramCheck({1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}));
}

}  // namespace
