#include "store/fleet/Bins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using polarline::fleet::Bins;
using polarline::fleet::chooseBins;

std::vector<double> evenly(double from, double to, int count) {
  std::vector<double> values;
  for (int k = 0; k < count; ++k) values.push_back(from + (to - from) * k / (count - 1));
  return values;
}

TEST(Bins, HaveADecimalStepAndABeginningThatIsAMultipleOfIt) {
  const Bins bins = chooseBins(evenly(0.013, 0.087, 100), {}, 10);
  EXPECT_EQ(bins.step, 0.01);
  EXPECT_EQ(bins.from, 0.01);
  EXPECT_EQ(bins.count, 8U);
}

TEST(Bins, ReachABoundThatIsNearAndNoneThatIsFar) {
  const std::vector<double> values = evenly(0.0, 1.0, 101);
  EXPECT_GE(chooseBins(values, {2.9}, 40).from + 40 * chooseBins(values, {2.9}, 40).step, 2.9);
  EXPECT_EQ(chooseBins(values, {3.1}, 40).count, chooseBins(values, {}, 40).count);
  EXPECT_LE(chooseBins(values, {-1.9}, 40).from, -1.9);
}

TEST(Bins, CountWhatLiesBeyondInTheOutermost) {
  const Bins bins{1.0, 0.5, 4};
  EXPECT_EQ(bins.binOf(-1e300), 0U);
  EXPECT_EQ(bins.binOf(1.0), 0U);
  EXPECT_EQ(bins.binOf(1.5), 1U);
  EXPECT_EQ(bins.binOf(2.99), 3U);
  EXPECT_EQ(bins.binOf(3.0), 3U);
  EXPECT_EQ(bins.binOf(1e300), 3U);
}

TEST(Bins, AreNotSpreadByAFewThatAreFarOff) {
  std::vector<double> values = evenly(0.0, 1.0, 5000);
  values.push_back(1e6);
  EXPECT_LT(chooseBins(values, {}, 20).step, 0.2);
}

/// Every list of numbers has its bins, few enough, and the middle ones lie inside.
TEST(Bins, FitWhateverTheValuesAre) {
  for (const std::vector<double>& values : {std::vector<double>{0.0},
                                            {5.0, 5.0},
                                            {-3e-12, 4e-12},
                                            {1e9, 1e9 + 1},
                                            {-1e12, 1e12},
                                            {318.37, 318.371},
                                            {1e-300}}) {
    for (const std::size_t most : {10U, 40U}) {
      const Bins bins = chooseBins(values, {}, most);
      ASSERT_GE(bins.count, 1U);
      EXPECT_LE(bins.count, most);
      EXPECT_GT(bins.step, 0.0);
      for (const double value : values) {
        EXPECT_GE(value, bins.from - 1e-9 * std::abs(value));
        EXPECT_LE(value, bins.from + bins.step * static_cast<double>(bins.count) * (1 + 1e-9));
      }
    }
  }
}

TEST(Bins, OfValuesBeyondAllFiguresAreBinsOfNumbers) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const std::vector<double>& values :
       {std::vector<double>{-kInfinity}, {-1e308, 1e308}, {kInfinity, 0.5}, {-kInfinity, kInfinity}}) {
    const Bins bins = chooseBins(values, {-kInfinity, 1e308}, 10);
    EXPECT_TRUE(std::isfinite(bins.from) && std::isfinite(bins.step));
    EXPECT_GE(bins.count, 1U);
    EXPECT_LE(bins.count, 10U);
    for (const double value : values) EXPECT_LT(bins.binOf(value), bins.count);
  }
}

TEST(Bins, OfNoValuesAreNone) { EXPECT_EQ(chooseBins({}, {1.0}, 10).count, 0U); }

}  // namespace
