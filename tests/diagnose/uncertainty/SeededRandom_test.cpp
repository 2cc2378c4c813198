#include "diagnose/uncertainty/SeededRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

TEST(SeededRandom, GivesTheNumbersOfTheStandard) {
  SeededRandom random(5489);  // [rand.predef]: the 10000th number of a generator with that seed.
  for (int k = 1; k < 10'000; ++k) random.bits();
  EXPECT_EQ(random.bits(), 9981545732273789042U);
}

TEST(SeededRandom, UniformNumbersFillTheRange) {
  SeededRandom random(1);
  double sum = 0.0;
  double squares = 0.0;
  for (int k = 0; k < 100'000; ++k) {
    const double value = random.uniform();
    ASSERT_GE(value, 0.0);
    ASSERT_LT(value, 1.0);
    sum += value;
    squares += value * value;
  }
  EXPECT_NEAR(sum / 1e5, 0.5, 0.004);
  EXPECT_NEAR(squares / 1e5, 1.0 / 3.0, 0.004);
}

TEST(SeededRandom, ChoosesEachOfAFewAndEitherSignAsOften) {
  SeededRandom random(2);
  std::array<int, 3> chosen{};
  double signs = 0.0;
  for (int k = 0; k < 30'000; ++k) {
    ++chosen.at(random.below(3));
    signs += random.sign();
  }
  for (const int count : chosen) EXPECT_NEAR(count, 10'000, 400);
  EXPECT_NEAR(signs, 0.0, 700.0);
}

}  // namespace
