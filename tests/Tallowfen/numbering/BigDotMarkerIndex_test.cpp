#include <gtest/gtest.h>

#include "BoardView.h"
#include "Tallowfen/src/numbering/GrowGrid.h"
#include "Tallowfen/src/numbering/MarkerIndex.h"
#include "support/ConsoleCapture.h"

namespace {

using kestrune::Ellipse;
using kestrune::GetCircleIndexBigDots;
using kestrune::Numbering;

const std::vector<BoardView::Cell> kBigDots = {{16, 19}, {20, 19}, {20, 15}, {17, 15}};

std::vector<Ellipse> bigDots(BoardView& view, const std::vector<std::size_t>& order) {
  std::vector<Ellipse> bigs;
  for (const std::size_t i : order) bigs.push_back(view.at(kBigDots[i].first, kBigDots[i].second));
  return bigs;
}

class BigDots : public testing::TestWithParam<std::tuple<int, double>> {};

TEST_P(BigDots, NumberTheWholeBoard) {
  BoardView view(35, 37, tiltedCamera(30, std::get<0>(GetParam()), std::get<1>(GetParam())));
  Numbering numbering;
  ASSERT_TRUE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {2, 0, 3, 1}), view.all, numbering));
  EXPECT_FLOAT_EQ(numbering.marker_image_points[0].x, static_cast<float>(view.at(16, 19).x));
  EXPECT_FLOAT_EQ(numbering.marker_image_points[3].y, static_cast<float>(view.at(17, 15).y));
  EXPECT_EQ(numbering.marker_model_points[3], cv::Point2f(170, 150));
  kestrune::NumberedPoints result;
  kestrune::GrowGrid(exampleBigDotBoard(), numbering.seed_indices, view.all, result);
  EXPECT_EQ(result.points.size(), 1295U);
  for (const auto& point : result.points) EXPECT_EQ(point.id, view.trueId(point));
}

INSTANTIATE_TEST_SUITE_P(Views, BigDots, testing::Combine(testing::Values(0, 1, 2, 3), testing::Values(0.0, 0.004)));

TEST(BigDotMarkerIndex, LandMarksStandForTheLayout) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  kestrune::RingTargetConfig config = exampleBigDotBoard();
  config.inner_width = config.inner_height = 33;
  config.land_mark_switch = 1;
  config.land_mark1_x = 160, config.land_mark1_y = 190, config.land_mark2_x = 200, config.land_mark2_y = 190;
  config.land_mark3_x = 200, config.land_mark3_y = 150, config.land_mark4_x = 170, config.land_mark4_y = 150;
  Numbering numbering;
  ASSERT_TRUE(GetCircleIndexBigDots(config, {}, bigDots(view, {0, 1, 2, 3}), view.all, numbering));
  EXPECT_EQ(view.at(16, 19).id, 19 * 37 + 16);
}

TEST(BigDotMarkerIndex, WrongShapeFailsWithoutAWord) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  const std::vector<Ellipse> square = {view.at(4, 4), view.at(8, 4), view.at(8, 8), view.at(4, 8)};
  Numbering numbering;
  const ConsoleCapture console;
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, square, view.all, numbering));
  EXPECT_EQ(console.err(), "");
}

TEST(BigDotMarkerIndex, ListsThatAreEmptyOrNotFourFail) {
  BoardView view(35, 37, tiltedCamera(30, 0));
  std::vector<Ellipse> none;
  Numbering numbering;
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, {}, view.all, numbering));
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {0, 1, 2, 3}), none, numbering));
  EXPECT_FALSE(GetCircleIndexBigDots(exampleBigDotBoard(), {}, bigDots(view, {0, 1, 2}), view.all, numbering));
}

}  // namespace
