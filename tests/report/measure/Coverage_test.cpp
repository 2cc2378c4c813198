#include "report/measure/Coverage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace polarline {
namespace {

TEST(CoverageCells, AreAboutSquare) {
  const Coverage wide({1600, 900});
  EXPECT_EQ(wide.columns(), 16);
  EXPECT_EQ(wide.rows(), 9);
  const Coverage high({10, 1000});
  EXPECT_EQ(high.columns(), 1);
  EXPECT_EQ(high.rows(), 16);
}

TEST(CoverageDots, CountWhereTheyLie) {
  Coverage coverage({160, 160});
  coverage.add({-0.5, 9.4, 9.5, 159.4, 159.5, NAN, 5.0}, {0.0, 0.0, 0.0, 159.4, 0.0, 0.0, -0.6});
  EXPECT_EQ(coverage.dots()[0], 2);
  EXPECT_EQ(coverage.dots()[1], 1) << "half a pixel to the left of 10 begins the second cell";
  EXPECT_EQ(coverage.dots()[255], 1);
  EXPECT_EQ(std::accumulate(coverage.dots().begin(), coverage.dots().end(), 0), 4) << "the rest lies outside";
  EXPECT_DOUBLE_EQ(coverage.share(), 3.0 / 256.0);
}

TEST(CoverageOf, NoPictureIsNone) {
  Coverage coverage({0, 10});
  coverage.add({1.0}, {1.0});
  EXPECT_EQ(coverage.share(), 0.0);
  EXPECT_EQ(coverage.columns(), 0);
}

}  // namespace
}  // namespace polarline
