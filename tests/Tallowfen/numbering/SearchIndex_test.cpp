#include "Tallowfen/src/numbering/SearchIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "BoardView.h"

namespace {

using kestrune::Ellipse;
using kestrune::GetCircleIndexBySearch;
using kestrune::MarkerSeeds;
using kestrune::NumberedPoints;
using kestrune::RingTargetConfig;

const std::vector<BoardView::Cell> kBigDots = {{16, 19}, {20, 19}, {20, 15}, {17, 15}};

class SearchIndexTest : public testing::Test {
 protected:
  std::vector<Ellipse> bigDots() {
    std::vector<Ellipse> bigs;
    for (const auto& [column, row] : kBigDots) bigs.push_back(view.at(column, row));
    return bigs;
  }
  bool run() { return GetCircleIndexBySearch(config, bigDots(), view.all, seeds, result); }
  bool hasId(int id) const {
    return std::ranges::any_of(result.points, [id](const auto& point) { return point.id == id; });
  }
  void expectTrueIds() const {
    for (const auto& point : result.points) EXPECT_EQ(point.id, view.trueId(point));
  }

  RingTargetConfig config = exampleBigDotBoard();
  BoardView view{35, 37, tiltedCamera(30, 0, 0.004)};
  MarkerSeeds seeds;
  NumberedPoints result;
};

// As long as no land mark is set all four are (0, 0), where the dot of id 0 stands.
TEST_F(SearchIndexTest, NumbersEveryDotButTheOneOnTheUnsetLandMarks) {
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1294U);
  EXPECT_EQ(result.identified_ellipses.size(), 1294U);
  EXPECT_FALSE(hasId(0));
  expectTrueIds();
  EXPECT_EQ(seeds.marker_model_points[3], cv::Point2f(340, 300));
  EXPECT_TRUE(seeds.seed_indices.empty());
  EXPECT_EQ(result.identified_ellipses[0].id, 1);
  EXPECT_EQ(result.identified_ellipses[0].semi_a, view.all[1].semi_a);
}

// The four big dots alone would lay far dots off their grid points, by more than the reach of 8.
TEST_F(SearchIndexTest, TheDotsNearTheBigOnesHelpToFindTheFarOnes) {
  std::vector<Ellipse> bigs = bigDots();
  bigs[0].x += 0.4;
  ASSERT_TRUE(GetCircleIndexBySearch(config, bigs, view.all, seeds, result));
  EXPECT_EQ(result.points.size(), 1294U);
  expectTrueIds();
}

TEST_F(SearchIndexTest, DotsOnLandMarksAreLeftOut) {
  config.land_mark_switch = 1;
  config.land_mark1_x = 320, config.land_mark1_y = 380, config.land_mark2_x = 400, config.land_mark2_y = 380;
  config.land_mark3_x = 400, config.land_mark3_y = 300, config.land_mark4_x = 340, config.land_mark4_y = 300;
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1291U);
  EXPECT_TRUE(hasId(0));
  for (const auto& [column, row] : kBigDots) EXPECT_FALSE(hasId(row * 37 + column));
  expectTrueIds();
}

// Only the layout takes the step in y as it is; land marks do without it, and the grid is square then.
TEST_F(SearchIndexTest, LandMarksNumberASquareGridWithoutARowPitch) {
  config.step_y = 0;
  config.land_mark_switch = 1;
  config.land_mark1_x = 320, config.land_mark1_y = 380, config.land_mark2_x = 400, config.land_mark2_y = 380;
  config.land_mark3_x = 400, config.land_mark3_y = 300, config.land_mark4_x = 340, config.land_mark4_y = 300;
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1291U);
  for (const int id : {0, 37, 10 * 37 + 5, 34 * 37 + 36}) EXPECT_TRUE(hasId(id)) << id;
  expectTrueIds();
}

TEST_F(SearchIndexTest, BoardOfTooManyDotsIsRefused) {
  config.rows = config.cols = 65535;
  try {
    run();
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_NE(error.err.find("4294836225"), std::string::npos) << error.err;
  }
}

TEST_F(SearchIndexTest, LandMarksCountAlsoWhileTheLayoutDoesNotUseThem) {
  config.land_mark2_x = 100, config.land_mark2_y = 40;  // Column 5, row 2.
  ASSERT_TRUE(run());
  EXPECT_FALSE(hasId(0));
  EXPECT_FALSE(hasId(2 * 37 + 5));
  EXPECT_EQ(result.points.size(), 1293U);
}

TEST_F(SearchIndexTest, ColumnsAndRowsMayDifferInStep) {
  config.step = 30;
  config.step_y = 20;
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1294U);
  expectTrueIds();
}

// 1294 matches must exceed the halved count: of 2587 that is 1293, of 2588 it is 1294.
TEST_F(SearchIndexTest, HalfOfTheEllipsesIsNotEnough) {
  for (int i = 0; i < 1292; ++i) view.all.push_back(view.dotAt(-20 - i % 7, -20 - i % 11));
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1294U);

  result = {};
  view.all.push_back(view.dotAt(-20, -20));
  ASSERT_TRUE(run());
  EXPECT_TRUE(result.points.empty());
  EXPECT_TRUE(result.identified_ellipses.empty());
  EXPECT_TRUE(result.unidentified.empty());
}

// Eight model units are 0.4 pitches at a step of 20.
TEST_F(SearchIndexTest, DotFarFromItsGridPointHasNoNumber) {
  view = BoardView(35, 37, tiltedCamera(30, 0));
  view.at(30, 30) = view.dotAt(30.38, 30);
  view.at(5, 30) = view.dotAt(5, 30.42);
  ASSERT_TRUE(run());
  EXPECT_TRUE(hasId(30 * 37 + 30));
  EXPECT_FALSE(hasId(30 * 37 + 5));
  EXPECT_EQ(result.points.size(), 1293U);
}

TEST_F(SearchIndexTest, GridPointGoesToTheFirstDotOfTheList) {
  view.all.push_back(view.dotAt(30, 30));
  ASSERT_TRUE(run());
  EXPECT_EQ(result.points.size(), 1294U);
  EXPECT_EQ(result.points.back().id, 1294);
}

// A step of 10 lets 8 units reach two columns: the first free one in the rows' order wins, left before right.
TEST_F(SearchIndexTest, FirstFreeGridPointWinsOverTheNearest) {
  config.step = config.step_y = 10;
  view = BoardView(35, 37, tiltedCamera(30, 0));
  std::swap(view.all[3 * 37 + 3], view.all[0]);
  view.at(0, 0) = view.dotAt(2.7, 2.7);  // First of the list, within 8 units of (2, 2) and of (3, 3).
  ASSERT_TRUE(run());
  const auto found = std::ranges::find_if(result.points, [&](const auto& p) { return p.x == view.all[0].x; });
  ASSERT_NE(found, result.points.end());
  EXPECT_EQ(found->id, 2 * 37 + 2);
}

TEST_F(SearchIndexTest, ListsThatAreEmptyOrTooShortFail) {
  EXPECT_FALSE(GetCircleIndexBySearch(config, {}, view.all, seeds, result));
  EXPECT_FALSE(GetCircleIndexBySearch(config, bigDots(), {}, seeds, result));
  std::vector<Ellipse> three = bigDots();
  three.pop_back();
  EXPECT_FALSE(GetCircleIndexBySearch(config, three, view.all, seeds, result));
}

TEST_F(SearchIndexTest, WrongShapeFails) {
  view = BoardView(35, 37, tiltedCamera(30, 0));
  EXPECT_FALSE(GetCircleIndexBySearch(config, {view.at(4, 4), view.at(8, 4), view.at(8, 8), view.at(4, 8)}, view.all,
                                      seeds, result));
}

// The layout takes the step in y as it is, so that all four markers fall on one line and no homography exists.
TEST_F(SearchIndexTest, ZeroStepInYEndsInTheExceptionOfTheHomography) {
  config.step_y = 0;
  EXPECT_THROW(run(), cv::Exception);
}

}  // namespace
