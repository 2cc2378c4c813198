#include "Tallowfen/src/numbering/SeedNeighbours.h"

#include <gmock/gmock.h>

#include "BoardView.h"
#include "support/ConsoleCapture.h"

namespace {

using kestrune::MarkerSeeds;
using kestrune::MarkerSizes;
using kestrune::SeedNeighbours;
using testing::ElementsAre;

// All dots of a 9 x 9 board, each in its cell.
class SeedNeighboursTest : public testing::Test {
 protected:
  SeedNeighboursTest() : view(9, 9, tiltedCamera(20, 0)) {
    config.rows = config.cols = 9;
    for (int i = 0; i < 81; ++i) grid.emplace_back(10 * (i % 9), 10 * (i / 9));
    seeds.marker_model_points = {{20, 20}, {60, 50}};
  }

  bool run(bool solid_big = false) { return SeedNeighbours(config, {true, solid_big, false}, grid, view.all, seeds); }

  kestrune::RingTargetConfig config;
  BoardView view;
  std::vector<cv::Point> grid;
  MarkerSeeds seeds;
};

TEST_F(SeedNeighboursTest, FirstCompleteBlockRowByRow) {
  ASSERT_TRUE(run());
  EXPECT_THAT(seeds.seed_indices, ElementsAre(10, 11, 12, 19, 20, 21, 28, 29, 30));
  for (const std::int32_t seed : seeds.seed_indices) EXPECT_EQ(view.all[static_cast<std::size_t>(seed)].id, seed);
  EXPECT_EQ(view.all[0].id, -1);
}

TEST_F(SeedNeighboursTest, TwoEllipsesInACellCountAsMissing) {
  grid[0] = {15, 15};  // Into the cell of dot 10.
  ASSERT_TRUE(run());
  EXPECT_THAT(seeds.seed_indices, ElementsAre(41, 42, 43, 50, 51, 52, 59, 60, 61));
  EXPECT_EQ(view.all[11].id, 11) << "the incomplete block keeps its ids";
  EXPECT_EQ(view.all[10].id, -1);
}

TEST_F(SeedNeighboursTest, EmptyCellGoesOnToTheNextMarker) {
  grid[20] = {500, 500};
  ASSERT_TRUE(run());
  EXPECT_EQ(seeds.seed_indices[0], 41);
}

TEST_F(SeedNeighboursTest, NoCompleteBlockPrintsItsCount) {
  grid[20] = {500, 500};
  grid[51] = {500, 500};
  seeds.seed_indices = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  const ConsoleCapture console;
  EXPECT_FALSE(run());
  EXPECT_EQ(console.err(), "Do not have enough ring neighbors: 0, which should be more than 8!\n");
  EXPECT_EQ(console.out(), "");
  EXPECT_TRUE(seeds.seed_indices.empty());
}

TEST_F(SeedNeighboursTest, BlocksOfEightAreNotEnough) {
  seeds.marker_model_points = {{20, 20}};
  grid[10] = {500, 500};
  const ConsoleCapture console;
  EXPECT_FALSE(run());
  EXPECT_EQ(console.err(), "Do not have enough ring neighbors: 0, which should be more than 8!\n");
}

TEST_F(SeedNeighboursTest, IdsAreCutToSixteenBits) {
  config.cols = 8000;
  for (int i = 0; i < 81; ++i) grid[static_cast<std::size_t>(i)].y += 70;  // Row 9 and on of 8000 columns.
  seeds.marker_model_points = {{20, 90}};
  ASSERT_TRUE(run());
  EXPECT_EQ(view.all[10].id, 8000 * 8 + 1);
  EXPECT_EQ(view.all[20].id, 8000 * 9 + 2 - 65536);
}

TEST_F(SeedNeighboursTest, CoveredDotsAreMadeUpForBigMarkersOnly) {
  for (const std::size_t covered : {11U, 19U, 21U, 29U}) grid[covered] = {500, 500};
  seeds.marker_model_points = {{20, 20}};
  ConsoleCapture console;
  EXPECT_FALSE(run(false));
  ASSERT_TRUE(run(true));
  EXPECT_THAT(seeds.seed_indices, ElementsAre(10, 81, 12, 82, 20, 83, 28, 84, 30));
  EXPECT_EQ(view.all[81].id, 11);
  EXPECT_EQ(view.all[84].id, 29);
}

// The block's first column lies beyond the board: its cells are the last ones of the rows above.
TEST_F(SeedNeighboursTest, BlockBeyondTheEdgeTakesItsCellsFromTheNextRow) {
  seeds.marker_model_points = {{0, 20}};
  ASSERT_TRUE(run());
  EXPECT_THAT(seeds.seed_indices, ElementsAre(8, 9, 10, 17, 18, 19, 26, 27, 28));
}

// Land marks may stand anywhere: (15, 15) lies in cell (1, 1), and the cells at 5 and 25 are 0 and 2.
TEST_F(SeedNeighboursTest, MarkerBetweenTheCellsCountsForTheOneAboveLeft) {
  seeds.marker_model_points = {{15, 15}};
  ASSERT_TRUE(run());
  EXPECT_THAT(seeds.seed_indices, ElementsAre(0, 1, 2, 9, 10, 11, 18, 19, 20));
}

TEST_F(SeedNeighboursTest, MarkerPairsLayTheGrid) {
  for (const auto& [column, row] : {std::pair(2, 2), {6, 2}, {6, 6}, {2, 6}}) {
    const kestrune::Ellipse& dot = view.at(column, row);
    seeds.marker_image_points.emplace_back(static_cast<float>(dot.x), static_cast<float>(dot.y));
  }
  seeds.marker_model_points = {{20, 20}, {60, 20}, {60, 60}, {20, 60}};
  ASSERT_TRUE(seedFromMarkers(config, {true, false, false}, view.all, seeds));
  EXPECT_THAT(seeds.seed_indices, ElementsAre(10, 11, 12, 19, 20, 21, 28, 29, 30));
}

}  // namespace
