#include "Tallowfen/src/numbering/GrowGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "BoardView.h"

namespace {

using kestrune::Ellipse;
using kestrune::GrowGrid;
using kestrune::NumberedPoints;
using kestrune::RingTargetConfig;

RingTargetConfig boardOf(int rows, int cols) {
  RingTargetConfig config;
  config.rows = static_cast<std::uint16_t>(rows);
  config.cols = static_cast<std::uint16_t>(cols);
  return config;
}

int wrongIds(const BoardView& view, const NumberedPoints& result) {
  int wrong = 0;
  for (const auto& point : result.points) wrong += point.id == view.trueId(point) ? 0 : 1;
  return wrong;
}

bool hasId(const NumberedPoints& result, int id) {
  return std::ranges::any_of(result.points, [id](const auto& point) { return point.id == id; });
}

struct GrowthCase {
  const char* name;
  BoardView::Camera camera;
};

class GrowGridThrough : public testing::TestWithParam<GrowthCase> {};

TEST_P(GrowGridThrough, NumbersEveryDot) {
  BoardView view(35, 37, GetParam().camera);
  NumberedPoints result;
  EXPECT_TRUE(GrowGrid(boardOf(35, 37), view.seedsAround(14, 16), view.all, result));
  EXPECT_EQ(result.points.size(), 1295U);
  EXPECT_EQ(result.identified_ellipses.size(), 1295U);
  EXPECT_TRUE(result.unidentified.empty());
  EXPECT_EQ(wrongIds(view, result), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cameras, GrowGridThrough,
    testing::Values(GrowthCase{"Straight", tiltedCamera(30, 0)}, GrowthCase{"TurnedOnce", tiltedCamera(30, 1)},
                    GrowthCase{"UpsideDown", tiltedCamera(30, 2)}, GrowthCase{"TurnedThrice", tiltedCamera(30, 3)},
                    GrowthCase{"Tilted", tiltedCamera(30, 0, 0.012)},
                    // Out to 64 degrees from the axis: the outer pitch is a fifth of the inner one.
                    GrowthCase{"WideLens", curvedCamera(30, 18, 17, 12)}),
    [](const auto& test) { return test.param.name; });

TEST(GrowGrid, OrderOfTheListIsKept) {
  BoardView view(9, 9, tiltedCamera(30, 0));
  NumberedPoints result;
  GrowGrid(boardOf(9, 9), view.seedsAround(4, 4), view.all, result);
  ASSERT_EQ(result.points.size(), view.all.size());
  for (std::size_t i = 0; i < view.all.size(); ++i) {
    EXPECT_EQ(result.points[i].id, static_cast<int>(i));
    EXPECT_EQ(result.identified_ellipses[i].x, view.all[i].x);
  }
}

// On a straight grid every prediction is the dot's own place, so that the displacement is what is tested. The numbers
// of a large picture would round 0.3 pitches; 0.29 and 0.31 stay clear of that.
class GrowGridDisplacedDot : public testing::TestWithParam<std::pair<cv::Point2d, bool>> {};

TEST_P(GrowGridDisplacedDot, IsTakenWithinThreeTenthsOfThePitch) {
  const auto& [displacement, taken] = GetParam();
  BoardView view(11, 11, tiltedCamera(40, 0));
  Ellipse& dot = view.at(8, 7);
  dot.x += 40 * displacement.x;
  dot.y += 40 * displacement.y;
  NumberedPoints result;
  GrowGrid(boardOf(11, 11), view.seedsAround(4, 4), view.all, result);
  EXPECT_EQ(hasId(result, 7 * 11 + 8), taken);
  EXPECT_EQ(result.unidentified.size(), taken ? 0U : 1U);
  EXPECT_EQ(result.unidentified_ellipses.size(), taken ? 0U : 1U);
  EXPECT_EQ(result.points.size(), taken ? 121U : 120U) << "the dots around it are reached by other edges";
}

INSTANTIATE_TEST_SUITE_P(Displacements, GrowGridDisplacedDot,
                         testing::Values(std::pair(cv::Point2d(0.29, 0), true), std::pair(cv::Point2d(0.31, 0), false),
                                         std::pair(cv::Point2d(0, -0.29), true),
                                         std::pair(cv::Point2d(0, -0.31), false),
                                         std::pair(cv::Point2d(0.2, 0.2), true),
                                         std::pair(cv::Point2d(0.22, 0.22), false)));

// Pitch and displacement in whole pixels: 12 / 40 is 0.3 exactly, and the limit itself is taken.
TEST(GrowGrid, ExactlyThreeTenthsIsTaken) {
  BoardView view(7, 7, tiltedCamera(40, 0));
  view.at(5, 3).x += 12;
  NumberedPoints result;
  GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
  EXPECT_TRUE(hasId(result, 3 * 7 + 5));
}

// A flat ellipse turned by 30 degrees: five times its semi-axes are 10 and 5 px.
TEST(GrowGrid, DotMustReachThePredictionWithFiveTimesItsOutline) {
  const auto taken = [](double along, double across) {
    BoardView view(7, 7, tiltedCamera(40, 0));
    Ellipse& dot = view.at(5, 3);
    dot.angle = CV_PI / 6;
    dot.semi_a = 2;
    dot.semi_b = 1;
    dot.x += along * std::cos(dot.angle) - across * std::sin(dot.angle);
    dot.y += along * std::sin(dot.angle) + across * std::cos(dot.angle);
    NumberedPoints result;
    GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
    return hasId(result, 3 * 7 + 5);
  };
  EXPECT_TRUE(taken(9.9, 0));
  EXPECT_FALSE(taken(10.1, 0));
  EXPECT_TRUE(taken(0, 4.9));
  EXPECT_FALSE(taken(0, 5.1));
  EXPECT_FALSE(taken(-8, 4)) << "1.28 in the ellipse's equation";
}

TEST(GrowGrid, DotWithoutExtentIsTakenAtItsVeryPlaceOnly) {
  for (const double displacement : {0.0, 0.01}) {
    BoardView view(7, 7, tiltedCamera(32, 0));
    view.at(5, 3).semi_b = 0;
    view.at(5, 3).x += displacement;
    NumberedPoints result;
    GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
    EXPECT_EQ(hasId(result, 3 * 7 + 5), displacement == 0) << displacement;
  }
}

// The displacement counts in single precision: at a thousand pixels 1e-44 has no place beside it and is zero.
TEST(GrowGrid, PlaceOfADotWithoutExtentIsComparedInSinglePrecision) {
  BoardView view(7, 7, [](double column, double row) { return cv::Point2d(32 * (column - 5), 32 * (row - 3)); });
  view.at(5, 3).semi_a = view.at(5, 3).semi_b = 0;
  view.at(5, 3).x = 1e-60;
  NumberedPoints result;
  GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
  EXPECT_TRUE(hasId(result, 3 * 7 + 5));
}

TEST(GrowGrid, GrowsAroundMissingDots) {
  BoardView view(15, 17, tiltedCamera(30, 0, 0.01), {{8, 3}, {9, 3}, {3, 9}, {12, 12}});
  NumberedPoints result;
  GrowGrid(boardOf(15, 17), view.seedsAround(8, 7), view.all, result);
  EXPECT_EQ(result.points.size(), 15U * 17U - 4U);
  EXPECT_EQ(wrongIds(view, result), 0);
}

TEST(GrowGrid, SpeckThatIsNearerIsTakenAndTheDotLeft) {
  BoardView view(7, 7, tiltedCamera(40, 0));
  view.at(5, 3).x += 3;
  Ellipse speck = view.dotAt(5, 3);
  speck.y += 1;
  view.all.push_back(speck);
  NumberedPoints result;
  GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
  ASSERT_EQ(result.unidentified.size(), 1U);
  EXPECT_EQ(result.unidentified[0].x, view.at(5, 3).x);
  EXPECT_EQ(result.identified_ellipses.back().id, 3 * 7 + 5);
}

TEST(GrowGrid, IdIsCutToSixteenBits) {
  // Rows 210 to 224 of a board of 300 columns: 300 * 218 + 136 is the first beyond 65535.
  BoardView view(15, 9, tiltedCamera(30, 0));
  const std::vector<std::int32_t> seeds = view.seedsAround(4, 4);
  view.at(4, 4).id = 300 * 214 + 200;
  NumberedPoints result;
  GrowGrid(boardOf(300, 300), seeds, view.all, result);
  ASSERT_EQ(result.points.size(), 135U);
  for (int row = 0; row < 15; ++row) {
    for (int column = 0; column < 9; ++column) {
      const int index = 300 * (210 + row) + 196 + column;
      EXPECT_EQ(result.points[static_cast<std::size_t>(row * 9 + column)].id, index > 65535 ? index - 65536 : index);
    }
  }
}

TEST(GrowGrid, LayerOfTheSeedGoesToEveryDot) {
  BoardView view(5, 5, tiltedCamera(30, 0));
  const std::vector<std::int32_t> seeds = view.seedsAround(2, 2);
  view.at(2, 2).id = 0x7f03000c;  // Place 12 of layer 3; the highest bits are nobody's.
  NumberedPoints result;
  GrowGrid(boardOf(5, 5), seeds, view.all, result);
  ASSERT_EQ(result.points.size(), 25U);
  EXPECT_EQ(result.points[0].id, 3 * 65536);
  EXPECT_EQ(result.points[24].id, 3 * 65536 + 24);
}

// Growth has no bounds: what stands one pitch beside the board is numbered as the last column of the row above.
TEST(GrowGrid, DotBesideTheBoardCountsIntoTheNextRow) {
  BoardView view(5, 6, tiltedCamera(30, 0));
  const std::vector<std::int32_t> seeds = view.seedsAround(2, 2);
  view.at(2, 2).id = 2 * 5 + 1;  // The board has five columns, from the second one of the picture on.
  NumberedPoints result;
  GrowGrid(boardOf(5, 5), seeds, view.all, result);
  ASSERT_EQ(result.points.size(), 30U);
  EXPECT_EQ(result.points[6].id, 4);       // Column -1 of row 1.
  EXPECT_EQ(result.points[0].id, 0xffff);  // Column -1 of row 0.
}

TEST(GrowGrid, FirstNineSeedsCount) {
  BoardView view(7, 7, tiltedCamera(30, 0));
  std::vector<std::int32_t> seeds = view.seedsAround(3, 3);
  seeds.push_back(0);
  seeds.push_back(-5);
  NumberedPoints result;
  EXPECT_TRUE(GrowGrid(boardOf(7, 7), seeds, view.all, result));
  EXPECT_EQ(result.points.size(), 49U);
  EXPECT_EQ(wrongIds(view, result), 0);
}

class GrowGridUselessSeeds : public testing::TestWithParam<std::vector<std::int32_t>> {};

TEST_P(GrowGridUselessSeeds, NumberNothing) {
  BoardView view(3, 3, tiltedCamera(30, 0));
  NumberedPoints result;
  EXPECT_TRUE(GrowGrid(boardOf(3, 3), GetParam(), view.all, result));
  EXPECT_TRUE(result.points.empty());
  EXPECT_EQ(result.unidentified.size(), 9U);
}

INSTANTIATE_TEST_SUITE_P(Lists, GrowGridUselessSeeds,
                         testing::Values(std::vector<std::int32_t>{}, std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7},
                                         std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7, 7},
                                         std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7, 9},
                                         std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7, -1}));

TEST(GrowGrid, BoardWithoutColumnsNumbersNothing) {
  BoardView view(3, 3, tiltedCamera(30, 0));
  NumberedPoints result;
  EXPECT_TRUE(GrowGrid(boardOf(3, 0), view.seedsAround(1, 1), view.all, result));
  EXPECT_EQ(result.unidentified.size(), 9U);
}

// A block that was tried before the seeds has numbered its dots already; what the growth does not reach keeps that id.
TEST(GrowGrid, UnnumberedDotKeepsTheIdThatItHad) {
  BoardView view(7, 7, tiltedCamera(40, 0));
  view.at(5, 3).x += 14;
  view.at(5, 3).id = 3 * 7 + 5;
  NumberedPoints result;
  GrowGrid(boardOf(7, 7), view.seedsAround(2, 3), view.all, result);
  ASSERT_EQ(result.unidentified.size(), 1U);
  ASSERT_EQ(result.unidentified_ellipses.size(), 1U);
  EXPECT_EQ(result.unidentified[0].id, 3 * 7 + 5);
  EXPECT_EQ(result.unidentified_ellipses[0].id, 3 * 7 + 5);
  EXPECT_FALSE(hasId(result, 3 * 7 + 5));
}

TEST(GrowGrid, FormerEllipsesGoFormerPointsStay) {
  BoardView view(3, 3, tiltedCamera(30, 0));
  view.all.push_back(view.dotAt(20, 20));
  NumberedPoints result;
  result.identified_ellipses.resize(5);
  result.unidentified_ellipses.resize(5);
  result.points.resize(2);
  result.unidentified.resize(2);
  GrowGrid(boardOf(3, 3), view.seedsAround(1, 1), view.all, result);
  EXPECT_EQ(result.identified_ellipses.size(), 9U);
  EXPECT_EQ(result.unidentified_ellipses.size(), 1U);
  EXPECT_EQ(result.points.size(), 11U);
  EXPECT_EQ(result.unidentified.size(), 3U);
}

// Whatever the dots and the seeds: growth ends, and every ellipse is in one of the two lists.
TEST(GrowGrid, AnyHeapOfDotsEnds) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> coordinate(0, 300);
  std::uniform_int_distribution<int> lattice(0, 12);
  for (int round = 0; round < 60; ++round) {
    std::vector<Ellipse> all(200);
    for (Ellipse& ellipse : all) {
      const bool onLattice = round % 2 == 0;
      ellipse.x = onLattice ? 25.0 * lattice(random) : coordinate(random);
      ellipse.y = onLattice ? 25.0 * lattice(random) : coordinate(random);
      ellipse.semi_a = ellipse.semi_b = 20;
    }
    all[20].x = std::numeric_limits<double>::quiet_NaN();
    all[21].y = std::numeric_limits<double>::infinity();
    all[22].semi_a = std::numeric_limits<double>::quiet_NaN();
    all[4 + static_cast<std::size_t>(round % 5)].id = round * 1000;
    NumberedPoints result;
    EXPECT_TRUE(GrowGrid(boardOf(9, 1 + round), {0, 1, 2, 3, 4, 5, 6, 7, 8 + round}, all, result));
    EXPECT_EQ(result.points.size() + result.unidentified.size(), 200U);
    EXPECT_GE(result.points.size(), 9U);
  }
}

TEST(GrowGrid, DefaultBoardIsNumberedWhole) {
  BoardView view(71, 73, tiltedCamera(26, 0, 0.003));
  NumberedPoints result;
  GrowGrid({}, view.seedsAround(28, 32), view.all, result);
  EXPECT_EQ(result.points.size(), 5183U);
  EXPECT_EQ(wrongIds(view, result), 0);
}

}  // namespace
