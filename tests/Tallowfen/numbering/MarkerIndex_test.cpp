#include "Tallowfen/src/numbering/MarkerIndex.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "BoardView.h"
#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/numbering/GrowGrid.h"
#include "support/ConsoleCapture.h"

namespace {

using kestrune::Ellipse;
using kestrune::GetCircleIndexBigDots;
using kestrune::GetCircleIndexRings;
using kestrune::MarkerSeeds;
using kestrune::MarkerSizes;
using Cells = std::vector<BoardView::Cell>;

struct RingBoard {
  const char* name;
  MarkerSizes sizes;
  Cells markers;              ///< Solid ring, then the rings clockwise from the upper left one.
  Cells big;                  ///< Markers under which the four direct neighbours are not drawn.
  std::size_t fewest_points;  ///< Seen with perspective.
  std::size_t most_points;
};

const RingBoard kSmall = {"Small", {true, false, false}, {{14, 16}, {14, 14}, {22, 14}, {22, 20}, {14, 20}}, {}, 1295,
                          1295};
// The solid ring's covered dots are made up; each ring loses its own centre and its four covered dots.
const Cells kBigCells = {{10, 14}, {10, 11}, {26, 11}, {26, 23}, {10, 23}};
const RingBoard kBig = {"Big", {false, true, false}, kBigCells, kBigCells, 1295 - 4 * 5, 1295 - 4 * 5};
// A made-up dot beside one of the small rings can take a real one's place; then that one is not numbered.
const RingBoard kMixed = {"Mixed",    {true, true, false}, {{10, 14}, {14, 14}, {22, 14}, {22, 20}, {14, 20}},
                          {{10, 14}}, 1295 - 16,           1295};

std::set<BoardView::Cell> coveredBy(const Cells& big) {
  std::set<BoardView::Cell> covered;
  for (const auto& [column, row] : big) {
    covered.insert({column - 1, row});
    covered.insert({column + 1, row});
    covered.insert({column, row - 1});
    covered.insert({column, row + 1});
  }
  return covered;
}

class MarkerIndexRings : public testing::TestWithParam<std::tuple<RingBoard, int, double>> {
 protected:
  const RingBoard board = std::get<0>(GetParam());
  BoardView view{35, 37, tiltedCamera(30, std::get<1>(GetParam()), std::get<2>(GetParam())), coveredBy(board.big)};

  std::vector<Ellipse> ellipses(const std::vector<std::size_t>& markers) {
    std::vector<Ellipse> list;
    for (const std::size_t i : markers) list.push_back(view.at(board.markers[i].first, board.markers[i].second));
    return list;
  }
};

TEST_P(MarkerIndexRings, AreFoundInTheOrderOfTheBoard) {
  MarkerSeeds seeds;
  ASSERT_TRUE(GetCircleIndexRings(exampleBoard(), board.sizes, ellipses({0}), ellipses({3, 1, 4, 2}), view.all, seeds));
  ASSERT_EQ(seeds.marker_image_points.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    const Ellipse& marker = view.at(board.markers[i].first, board.markers[i].second);
    EXPECT_FLOAT_EQ(seeds.marker_image_points[i].x, static_cast<float>(marker.x)) << i;
    EXPECT_FLOAT_EQ(seeds.marker_image_points[i].y, static_cast<float>(marker.y)) << i;
    EXPECT_EQ(seeds.marker_model_points[i], cv::Point2f(10.0F * static_cast<float>(board.markers[i].first),
                                                        10.0F * static_cast<float>(board.markers[i].second)));
  }
}

TEST_P(MarkerIndexRings, NumberTheWholeBoard) {
  MarkerSeeds seeds;
  ASSERT_TRUE(GetCircleIndexRings(exampleBoard(), board.sizes, ellipses({0}), ellipses({2, 4, 3, 1}), view.all, seeds));
  const auto [column, row] = board.markers[0];
  EXPECT_EQ(view.all[static_cast<std::size_t>(seeds.seed_indices.at(4))].id, row * 37 + column);
  kestrune::NumberedPoints result;
  kestrune::GrowGrid(exampleBoard(), seeds.seed_indices, view.all, result);
  for (const auto& point : result.points) EXPECT_EQ(point.id, view.trueId(point));
  if (std::get<2>(GetParam()) == 0) {
    EXPECT_EQ(result.points.size(), 1295U)
        << "without perspective the made-up dots stand exactly where they are expected";
    return;
  }
  EXPECT_GE(result.points.size(), board.fewest_points);
  EXPECT_LE(result.points.size(), board.most_points);
}

INSTANTIATE_TEST_SUITE_P(Boards, MarkerIndexRings,
                         testing::Combine(testing::Values(kSmall, kBig, kMixed), testing::Values(0, 1, 2, 3),
                                          testing::Values(0.0, 0.004)),
                         [](const auto& test) {
                           return std::string(std::get<0>(test.param).name) +
                                  std::to_string(90 * std::get<1>(test.param)) +
                                  (std::get<2>(test.param) == 0 ? "Straight" : "Tilted");
                         });

Ellipse at(double x, double y) {
  Ellipse ellipse;
  ellipse.x = x;
  ellipse.y = y;
  return ellipse;
}

TEST(MarkerIndexRingMarkerIndex, SolidRingOffTheLineOfTheTwoNearestRings) {
  const std::vector<Ellipse> rings = {at(0, 0), at(100, 0), at(100, 80), at(0, 80)};
  std::vector<Ellipse> all = rings;
  MarkerSeeds seeds;
  const ConsoleCapture console;
  // Seen from (0, 80), at 20 degrees from the side: cosine 0.94.
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(20, 25)}, rings, all, seeds));
  EXPECT_EQ(console.err(), "Failed in Colinear check of Ring1,Ring4 and SolidRing! \n");
}

// Seen from (0, 80), 60 px up: 0.97 is the cosine of 14.07 degrees, 15.04 px to the side.
TEST(MarkerIndexRingMarkerIndex, LineMayBendByFourteenDegrees) {
  const std::vector<Ellipse> rings = {at(0, 0), at(100, 0), at(100, 80), at(0, 80)};
  for (const double aside : {14.9, 15.2}) {
    std::vector<Ellipse> all = rings;
    MarkerSeeds seeds;
    const ConsoleCapture console;
    GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(aside, 20)}, rings, all, seeds);
    EXPECT_EQ(console.err().starts_with("Failed in Colinear"), aside > 15);
    EXPECT_EQ(seeds.marker_image_points.empty(), aside > 15);
  }
}

// There is no angle at a ring between the solid ring and a ring on the same spot: that counts as no line.
TEST(MarkerIndexRingMarkerIndex, SolidRingOnARingsCentreIsOffTheLine) {
  const std::vector<Ellipse> rings = {at(0, 0), at(100, 0), at(100, 80), at(0, 80)};
  std::vector<Ellipse> all = rings;
  MarkerSeeds seeds;
  const ConsoleCapture console;
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 0)}, rings, all, seeds));
  EXPECT_EQ(console.err(), "Failed in Colinear check of Ring1,Ring4 and SolidRing! \n");
  EXPECT_TRUE(seeds.marker_image_points.empty());
}

TEST(MarkerIndexRingMarkerIndex, SolidRingWhereTwoRingsCoincideIsOffTheLine) {
  const std::vector<Ellipse> rings = {at(0, 0), at(0, 0), at(100, 80), at(0, 80)};
  std::vector<Ellipse> all = rings;
  MarkerSeeds seeds;
  const ConsoleCapture console;
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 0)}, rings, all, seeds));
  EXPECT_EQ(console.err(), "Failed in Colinear check of Ring1,Ring4 and SolidRing! \n");
}

// Three rings are equally far from the solid ring and two of them coincide. Between these there is no angle, which
// counts as the opposite direction, so that the third of the list stays the third.
TEST(MarkerIndexRingMarkerIndex, CoincidingRingsPointAway) {
  const std::vector<Ellipse> rings = {at(-50, 5), at(100, 0), at(0, 100), at(100, 0)};
  std::vector<Ellipse> all = rings;
  MarkerSeeds seeds;
  const ConsoleCapture console;
  GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 0)}, rings, all, seeds);
  ASSERT_EQ(seeds.marker_image_points.size(), 5U);
  EXPECT_EQ(seeds.marker_image_points[2], cv::Point2f(0, 100));
  EXPECT_EQ(seeds.marker_image_points[3], cv::Point2f(100, 0));
}

TEST(MarkerIndexRingMarkerIndex, BigSolidRingOfTheMixedBoardNeedsNoLine) {
  const std::vector<Ellipse> rings = {at(0, 0), at(100, 0), at(100, 80), at(0, 80)};
  std::vector<Ellipse> all = rings;
  MarkerSeeds seeds;
  const ConsoleCapture console;
  GetCircleIndexRings(exampleBoard(), {true, true, false}, {at(-60, 5)}, rings, all, seeds);
  EXPECT_EQ(console.err(), "Do not have enough ring neighbors: 0, which should be more than 8!\n");
  EXPECT_EQ(seeds.marker_image_points[4], cv::Point2f(0, 80));
}

TEST(MarkerIndexRingMarkerIndex, EmptyListsFail) {
  const std::vector<Ellipse> rings = {at(0, 0), at(100, 0), at(100, 80), at(0, 80)}, none;
  std::vector<Ellipse> all = rings, empty;
  MarkerSeeds seeds;
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, none, rings, all, seeds));
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 20)}, none, all, seeds));
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 20)}, rings, empty, seeds));
  EXPECT_FALSE(GetCircleIndexRings(exampleBoard(), {true, false, false}, {at(0, 20)}, {rings[0], rings[1], rings[2]},
                                   all, seeds));
}

const std::vector<BoardView::Cell> kBigDots = {{16, 19}, {20, 19}, {20, 15}, {17, 15}};

std::vector<Ellipse> bigDots(BoardView& view, const std::vector<std::size_t>& order) {
  std::vector<Ellipse> bigs;
  for (const std::size_t i : order) bigs.push_back(view.at(kBigDots[i].first, kBigDots[i].second));
  return bigs;
}

class MarkerIndexBigDots : public testing::TestWithParam<std::tuple<int, double>> {};

TEST_P(MarkerIndexBigDots, NumberTheWholeBoard) {
  BoardView view(35, 37, tiltedCamera(30, std::get<0>(GetParam()), std::get<1>(GetParam())));
  MarkerSeeds seeds;
  ASSERT_TRUE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {2, 0, 3, 1}), view.all, seeds));
  EXPECT_FLOAT_EQ(seeds.marker_image_points[0].x, static_cast<float>(view.at(16, 19).x));
  EXPECT_FLOAT_EQ(seeds.marker_image_points[3].y, static_cast<float>(view.at(17, 15).y));
  EXPECT_EQ(seeds.marker_model_points[3], cv::Point2f(170, 150));
  kestrune::NumberedPoints result;
  kestrune::GrowGrid(exampleBigDotBoard(), seeds.seed_indices, view.all, result);
  EXPECT_EQ(result.points.size(), 1295U);
  for (const auto& point : result.points) EXPECT_EQ(point.id, view.trueId(point));
}

INSTANTIATE_TEST_SUITE_P(Views, MarkerIndexBigDots,
                         testing::Combine(testing::Values(0, 1, 2, 3), testing::Values(0.0, 0.004)));

TEST(MarkerIndexBigDotMarkerIndex, LandMarksStandForTheLayout) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  kestrune::RingTargetConfig config = exampleBigDotBoard();
  config.inner_width = config.inner_height = 33;
  config.land_mark_switch = 1;
  config.land_mark1_x = 160, config.land_mark1_y = 190, config.land_mark2_x = 200, config.land_mark2_y = 190;
  config.land_mark3_x = 200, config.land_mark3_y = 150, config.land_mark4_x = 170, config.land_mark4_y = 150;
  MarkerSeeds seeds;
  ASSERT_TRUE(GetCircleIndexBigDots(config, {}, bigDots(view, {0, 1, 2, 3}), view.all, seeds));
  EXPECT_EQ(view.at(16, 19).id, 19 * 37 + 16);
}

TEST(MarkerIndexBigDotMarkerIndex, WrongShapeFailsWithoutAWord) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  const std::vector<Ellipse> square = {view.at(4, 4), view.at(8, 4), view.at(8, 8), view.at(4, 8)};
  MarkerSeeds seeds;
  const ConsoleCapture console;
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, square, view.all, seeds));
  EXPECT_EQ(console.err(), "");
}

TEST(MarkerIndexBigDotMarkerIndex, ListsThatAreEmptyOrNotFourFail) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  std::vector<Ellipse> none;
  MarkerSeeds seeds;
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, {}, view.all, seeds));
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {0, 1, 2, 3}), none, seeds));
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {0, 1, 2}), view.all, seeds));
}

}  // namespace
