#include "refine/outline/Directions.h"

#include <gtest/gtest.h>

namespace {

TEST(DirectionsAround, AreAQuarterTurnApartWhereThereAreFour) {
  const auto four = refine::directionsAround<4>();
  const std::array<cv::Vec2d, 4> expected{cv::Vec2d(1, 0), cv::Vec2d(0, 1), cv::Vec2d(-1, 0), cv::Vec2d(0, -1)};
  for (std::size_t k = 0; k < 4; ++k) EXPECT_LT(cv::norm(four[k] - expected[k]), 1e-15) << k;
}

TEST(DirectionsAround, BeginAtAPartOfAStep) {
  const auto two = refine::directionsAround<2>(0.25);
  const double root = std::sqrt(0.5);
  EXPECT_LT(cv::norm(two[0] - cv::Vec2d(root, root)), 1e-15);
  EXPECT_LT(cv::norm(two[1] - cv::Vec2d(-root, -root)), 1e-15);
}

}  // namespace
