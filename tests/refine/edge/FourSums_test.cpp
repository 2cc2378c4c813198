#include "refine/edge/FourSums.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// In single precision 1e8 + 1 is 1e8: what is lost tells which values are added in it.
TEST(FourSumsOfValues, AreEachOfEveryFourthInSinglePrecision) {
  const std::array<float, 8> apart{1e8F, 1.0F, 2.0F, 3.0F, 0.0F, 0.0F, 0.0F, 0.0F};
  EXPECT_EQ(refine::sumOf(8, apart.data()), 1e8 + 6.0);
  const std::array<float, 8> together{1e8F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F};
  EXPECT_EQ(refine::sumOf(8, together.data()), 1e8);
}

TEST(FourSumsOfValues, TakeWhatIsLeftBehindTheFours) {
  const std::array<float, 7> values{1.0F, 2.0F, 4.0F, 8.0F, 16.0F, 32.0F, 64.0F};
  for (Eigen::Index n = 0; n <= 7; ++n) EXPECT_EQ(refine::sumOf(n, values.data()), static_cast<double>((1 << n) - 1));
}

}  // namespace
