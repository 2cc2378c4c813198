#include "refine/edge/NoiseLevel.h"

#include <gtest/gtest.h>

namespace {

TEST(NoiseLevelVariance, IsALineOfTheGreyThatStaysAboveTheRounding) {
  const refine::NoiseLevel noise{0.64, 0.01, 0.08};
  EXPECT_DOUBLE_EQ(noise.variance(200.0), 2.64);
  EXPECT_DOUBLE_EQ(noise.variance(-100.0), 0.08);
}

}  // namespace
