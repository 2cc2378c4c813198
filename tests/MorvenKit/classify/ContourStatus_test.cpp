#include "MorvenKit/src/classify/ContourStatus.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace kestrune::morvenkit;

TEST(ContourStatus, TableOfClasses) {
  const std::vector<std::pair<int, int>> table = {{0, 0}, {1, 3},    {2, 1},    {3, 2},   {4, 4},    {5, 5},
                                                  {6, 6}, {-2, 254}, {-1, 255}, {7, 255}, {-3, 255}, {255, 255}};
  for (const auto& [status, point_class] : table) EXPECT_EQ(classOfStatus(status), point_class) << status;
}

TEST(ContourStatus, AreaLimitsAreExclusive) {
  const float mean = 700.0F;
  const double high = 1.2 * 700.0, low = 0.2 * 700.0;
  EXPECT_EQ(statusOfArea(std::nextafter(high, 1e6), mean), kStatusBigDot);
  EXPECT_EQ(statusOfArea(high, mean), kStatusUnknown);
  EXPECT_EQ(statusOfArea(std::nextafter(high, 0.0), mean), kStatusDot);
  EXPECT_EQ(statusOfArea(std::nextafter(low, 1e6), mean), kStatusDot);
  EXPECT_EQ(statusOfArea(low, mean), kStatusUnknown);
  EXPECT_EQ(statusOfArea(0.0, mean), kStatusUnknown);
}

TEST(ContourStatus, NoMeanAreaMeansUnknown) {
  EXPECT_EQ(statusOfArea(100.0, std::numeric_limits<float>::quiet_NaN()), kStatusUnknown);
}
