#include "diagnose/uncertainty/KnownNoise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using polarline::DotState;
using polarline::RefinedDot;

RefinedDot dotWith(std::int32_t id, double xx, double xy, double yy) {
  RefinedDot dot;
  dot.id = id;
  dot.state = DotState::kRefined;
  dot.x = 3.0 * id;
  dot.y = 2.0 * id;
  dot.xx = xx;
  dot.xy = xy;
  dot.yy = yy;
  return dot;
}

/// The sums of squares of 20000 normal numbers scatter by 1 %.
TEST(KnownNoise, HasTheCovarianceOfTheDots) {
  constexpr int kDots = 20000;
  std::vector<RefinedDot> dots;
  for (int id = 0; id < kDots; ++id) dots.push_back(dotWith(id, 4e-4, -1e-4, 1e-4));
  SeededRandom random(7);
  const CentreNoise noise = knownNoise(dots, random);
  ASSERT_EQ(noise.size(), dots.size());
  EXPECT_EQ(noise.at(5).centre, cv::Vec2d(15.0, 10.0));
  double xx = 0.0, xy = 0.0, yy = 0.0, x = 0.0, fourth = 0.0;
  for (const auto& [id, each] : noise) {
    x += each.shift[0];
    xx += each.shift[0] * each.shift[0];
    xy += each.shift[0] * each.shift[1];
    yy += each.shift[1] * each.shift[1];
    fourth += std::pow(each.shift[0], 4.0);
  }
  EXPECT_NEAR(x / kDots, 0.0, 4.0 * 0.02 / std::sqrt(kDots));
  EXPECT_NEAR(xx / kDots, 4e-4, 0.04 * 4e-4);
  EXPECT_NEAR(xy / kDots, -1e-4, 0.04 * 2e-4);
  EXPECT_NEAR(yy / kDots, 1e-4, 0.04 * 1e-4);
  EXPECT_NEAR(fourth / kDots, 3.0 * 4e-4 * 4e-4, 0.15 * 3.0 * 4e-4 * 4e-4) << "as of a normal number";
}

TEST(KnownNoise, IsOfRefinedDotsOnly) {
  std::vector<RefinedDot> dots = {dotWith(0, 1e-4, 0.0, 1e-4), dotWith(1, 1e-4, 0.0, 1e-4), dotWith(2, 0.0, 0.0, 0.0)};
  dots[1].state = DotState::kCovered;
  dots[1].xx = dots[1].xy = dots[1].yy = std::numeric_limits<double>::quiet_NaN();
  SeededRandom random(7);
  const CentreNoise noise = knownNoise(dots, random);
  EXPECT_EQ(noise.size(), 1U);
  EXPECT_TRUE(noise.contains(0));
}

}  // namespace
