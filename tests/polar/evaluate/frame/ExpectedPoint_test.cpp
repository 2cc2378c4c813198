#include "polar/evaluate/frame/ExpectedPoint.h"

#include <gtest/gtest.h>

namespace {

using Point = kestrune::morvenkit::CtrlPoint<double>;

Point at(double x, double y, std::int32_t id = -1) {
  Point point;
  point.x = x;
  point.y = y;
  point.id = id;
  return point;
}

struct DistanceCase {
  const char* name;
  double x, y;
  bool taken;
};
class ExpectedPointSearchRadius : public ::testing::TestWithParam<DistanceCase> {};

TEST_P(ExpectedPointSearchRadius, IsOpen) {
  Point result = at(1, 2, 77);
  EXPECT_EQ(MatchExpectedPoint({500, 400}, {at(GetParam().x, GetParam().y)}, 3, result), GetParam().taken);
  EXPECT_EQ(result.id, GetParam().taken ? 3 : 77);
  EXPECT_EQ(result.x, GetParam().taken ? GetParam().x : 1.0);
}

INSTANTIATE_TEST_SUITE_P(
    Distances, ExpectedPointSearchRadius,
    ::testing::Values(DistanceCase{"HundredExactlyTakesNone", 560, 480, false},
                      DistanceCase{"JustInside", 560, 479.99, true}, DistanceCase{"JustOutside", 560, 480.01, false},
                      DistanceCase{"InsideByLessThanSinglePrecisionTells", 599.9999999, 400, false}),
    [](const auto& test) { return test.param.name; });

TEST(ExpectedPoint, NearestWinsAndIsCopiedUnderTheFramesId) {
  std::vector<Point> points = {at(10, 0, 1), at(3, 4, 2), at(0, 6, 3)};
  points[1].edge_points = {{1, 2}, {3, 4}};
  points[1].point_class = kestrune::morvenkit::kDot;
  Point result;
  ASSERT_TRUE(MatchExpectedPoint({0, 0}, points, 42, result));
  EXPECT_EQ(result.x, 3.0);
  EXPECT_EQ(result.y, 4.0);
  EXPECT_EQ(result.id, 42);
  EXPECT_EQ(result.edge_points, points[1].edge_points);
  EXPECT_EQ(result.point_class, kestrune::morvenkit::kDot);
}

TEST(ExpectedPoint, FirstOfEquallyNearPointsWins) {
  Point result;
  ASSERT_TRUE(MatchExpectedPoint({0, 0}, {at(20, 0), at(3, 4), at(-4, 3)}, 1, result));
  EXPECT_EQ(result.x, 3.0);
}

TEST(ExpectedPoint, NothingDetectedTakesNone) {
  Point result = at(1, 2, 77);
  EXPECT_FALSE(MatchExpectedPoint({0, 0}, {}, 1, result));
  EXPECT_EQ(result.id, 77);
}

}  // namespace
