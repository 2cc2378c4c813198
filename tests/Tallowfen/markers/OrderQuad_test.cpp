#include "Tallowfen/src/markers/OrderQuad.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <limits>

namespace {

using kestrune::OrderQuad;
using testing::ElementsAre;
using Point = cv::Point2f;
using Points = std::vector<Point>;

// The big dots of a 5 x 5 rectangle: their mean is (18.25, 17), and (16, 19) lies farthest from it. Across from it is
// (20, 15). The corner at (20, 19) is a right angle; at (17, 15) the cosine is -1 / sqrt(17).
const Points kBigDots = {{16, 19}, {20, 19}, {20, 15}, {17, 15}};

TEST(OrderQuad, EveryOrderOfTheListGivesTheSameCycle) {
  std::array<std::size_t, 4> order = {0, 1, 2, 3};
  do {
    Points points, ordered;
    for (const std::size_t i : order) points.push_back(kBigDots[i]);
    ASSERT_TRUE(OrderQuad(points, ordered));
    EXPECT_EQ(ordered, kBigDots);
  } while (std::ranges::next_permutation(order).found);
}

TEST(OrderQuad, TurnedBoardKeepsItsStart) {
  Points turned, ordered;
  for (const Point& p : kBigDots) turned.emplace_back(-p.x, -p.y);
  std::ranges::reverse(turned);
  ASSERT_TRUE(OrderQuad(turned, ordered));
  EXPECT_THAT(ordered, ElementsAre(Point(-16, -19), Point(-20, -19), Point(-20, -15), Point(-17, -15)));
}

// Mean (0, 0); both upper points lie sqrt(29) from it. Seen from (-5, 2), (4.5, -2.5) is across and the cosines are
// 0.11 and 0.25; seen from (5, 2), (-4.5, -1.5) is across and they are 0.14 and 0.
TEST(OrderQuad, FirstOfTwoFarthestPointsStarts) {
  const Point left(-5, 2), right(5, 2), low_right(4.5F, -2.5F), low_left(-4.5F, -1.5F);
  Points ordered;
  ASSERT_TRUE(OrderQuad({left, right, low_right, low_left}, ordered));
  EXPECT_THAT(ordered, ElementsAre(left, right, low_right, low_left));
  ASSERT_TRUE(OrderQuad({right, left, low_right, low_left}, ordered));
  EXPECT_THAT(ordered, ElementsAre(right, low_right, low_left, left));
}

// The start is (-10, 0), (9, 0) lies across, and the corners at (0, h) see the two under a cosine of (h^2 - 90) /
// sqrt((100 + h^2)(81 + h^2)): -0.34 at h = 6.65481, -0.36 at 6.50466, -0.5 at 5.47343.
TEST(OrderQuad, BetterCornerMustBeNearARightAngle) {
  const Point start(-10, 0), across(9, 0), slanted(0, -5.47343F);
  Points ordered;
  EXPECT_TRUE(OrderQuad({start, {0, 6.65481F}, across, slanted}, ordered));
  EXPECT_THAT(ordered, ElementsAre(start, Point(0, 6.65481F), across, slanted));
  EXPECT_TRUE(OrderQuad({start, slanted, across, {0, 6.65481F}}, ordered));
  EXPECT_THAT(ordered, ElementsAre(start, Point(0, 6.65481F), across, slanted));

  ordered = {start};
  EXPECT_FALSE(OrderQuad({start, {0, 6.50466F}, across, slanted}, ordered));
  EXPECT_FALSE(OrderQuad({start, slanted, across, {0, 6.50466F}}, ordered));
  EXPECT_THAT(ordered, ElementsAre(start)) << "a failure leaves the output";
}

TEST(OrderQuad, SquareHasNoStart) {
  Points ordered;
  EXPECT_FALSE(OrderQuad({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, ordered));
}

TEST(OrderQuad, PointsThatCoincideFail) {
  Points ordered;
  EXPECT_FALSE(OrderQuad({{3, 3}, {3, 3}, {3, 3}, {3, 3}}, ordered));
  EXPECT_FALSE(OrderQuad({{0, 0}, {9, 9}, {9, 9}, {9, 9}}, ordered));
  EXPECT_FALSE(OrderQuad({{0, 0}, {0, 0}, {9, 9}, {9, 9}}, ordered));
}

TEST(OrderQuad, TakesFourPointsOnly) {
  Points ordered;
  EXPECT_FALSE(OrderQuad({}, ordered));
  EXPECT_FALSE(OrderQuad({kBigDots[0], kBigDots[1], kBigDots[2]}, ordered));
  EXPECT_FALSE(OrderQuad({kBigDots[0], kBigDots[1], kBigDots[2], kBigDots[3], {18, 17}}, ordered));
}

TEST(OrderQuad, NotANumberFails) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  Points ordered;
  EXPECT_FALSE(OrderQuad({{nan, 0}, {1, 0}, {1, 1}, {0, 1}}, ordered));
}

}  // namespace
