#include "Tallowfen/src/zernike/DotContour.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using kestrune::circularityOf;
using kestrune::DotLimits;
using kestrune::kCountedDots;
using kestrune::kFittedDots;

struct LimitsCase {
  const char* name;
  DotLimits limits;
  std::size_t fewest;
  double least;
};

class DotContourDotRange : public testing::TestWithParam<LimitsCase> {};

TEST_P(DotContourDotRange, EndsOfTheLengthBelongToIt) {
  const LimitsCase& c = GetParam();
  EXPECT_FALSE(c.limits.admitLength(c.fewest - 1));
  EXPECT_TRUE(c.limits.admitLength(c.fewest));
  EXPECT_TRUE(c.limits.admitLength(500));
  EXPECT_FALSE(c.limits.admitLength(501));
}

TEST_P(DotContourDotRange, EndsOfTheCircularityBelongToIt) {
  const LimitsCase& c = GetParam();
  EXPECT_FALSE(c.limits.admitCircularity(std::nextafter(c.least, 0.0)));
  EXPECT_TRUE(c.limits.admitCircularity(c.least));
  EXPECT_TRUE(c.limits.admitCircularity(1.25));
  EXPECT_FALSE(c.limits.admitCircularity(std::nextafter(1.25, 2.0)));
}

INSTANTIATE_TEST_SUITE_P(Limits, DotContourDotRange,
                         testing::Values(LimitsCase{"Counted", kCountedDots, 60, 0.6000000238418579},
                                         LimitsCase{"Fitted", kFittedDots, 30, 0.30000001192092896}),
                         [](const auto& entry) { return entry.param.name; });

TEST(DotContourCircularity, ByHand) {
  EXPECT_NEAR(circularityOf({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), CV_PI / 4, 1e-12);
  EXPECT_EQ(circularityOf({{5, 5}}), 0);
}

}  // namespace
