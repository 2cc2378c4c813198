#include "polar/results/SixDigits.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

std::string written(double value) {
  std::array<char, kLongestNumber> text{};
  return {text.data(), writeSixDigits(text.data(), value)};
}

/// By the C library, which forms every digit of the number and rounds those.
std::string byTheLibrary(double value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%g", value);
  return text.data();
}

TEST(SixDigits, AreThoseOfTheNumber) {
  EXPECT_EQ(written(0.0), "0");
  EXPECT_EQ(written(-0.0), "-0");
  EXPECT_EQ(written(1.0), "1");
  EXPECT_EQ(written(-100000.0), "-100000");
  EXPECT_EQ(written(123456.0), "123456");
  EXPECT_EQ(written(1234567.0), "1.23457e+06");
  EXPECT_EQ(written(999999.4), "999999");
  EXPECT_EQ(written(999999.6), "1e+06");
  EXPECT_EQ(written(12.5), "12.5");
  EXPECT_EQ(written(100.25), "100.25");
  EXPECT_EQ(written(-0.0123456), "-0.0123456");
  EXPECT_EQ(written(0.0001), "0.0001");
  EXPECT_EQ(written(0.00012345678), "0.000123457");
  EXPECT_EQ(written(0.00009), "9e-05");
  EXPECT_EQ(written(0.9999999), "1");
  EXPECT_EQ(written(9.9999999e-5), "0.0001");
  EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "inf");
  EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "-inf");
  EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(SixDigits, HalvesGoToTheEvenDigit) {
  EXPECT_EQ(written(1.000005), byTheLibrary(1.000005)) << "no half: the nearest number of binary digits";
  EXPECT_EQ(written(100000.5), "100000");
  EXPECT_EQ(written(100001.5), "100002");
  EXPECT_EQ(written(12345.25), "12345.2");
  EXPECT_EQ(written(12345.75), "12345.8");
  EXPECT_EQ(written(0.50000050), byTheLibrary(0.50000050));
  EXPECT_EQ(written(0.03125 + 1.0), "1.03125");
  EXPECT_EQ(written(1.0009765625), "1.00098");
}

TEST(SixDigits, AreThoseOfTheLibraryBesideEveryPowerAndEveryHalf) {
  for (int exponent = -6; exponent <= 7; ++exponent) {
    for (const double lead : {1.0, 9.999995, 9.99999, 1.000005, 1.234565, 5.0, 9.9999949999, 9.9999950001}) {
      double value = lead * std::pow(10.0, exponent);
      for (int step = 0; step < 20; ++step) value = std::nextafter(value, 0.0);
      for (int step = 0; step < 40; ++step, value = std::nextafter(value, 1e300)) {
        ASSERT_EQ(written(value), byTheLibrary(value));
        ASSERT_EQ(written(-value), byTheLibrary(-value));
      }
    }
  }
}

TEST(SixDigits, AreThoseOfTheLibraryForAnyBits) {
  std::mt19937_64 draw(5);
  for (int k = 0; k < 50000; ++k) {
    const auto wide = std::bit_cast<double>(draw());
    if (!std::isnan(wide)) {
      ASSERT_EQ(written(wide), byTheLibrary(wide));
    }
    const double narrow = std::bit_cast<float>(static_cast<std::uint32_t>(draw()));
    if (!std::isnan(narrow)) {
      ASSERT_EQ(written(narrow), byTheLibrary(narrow));
    }
  }
}

TEST(SixDigits, AreThoseOfTheLibraryInEveryDecade) {
  std::mt19937_64 draw(7);
  std::uniform_real_distribution<double> exponents(-5.0, 6.5);
  for (int k = 0; k < 100000; ++k) {
    const double value = std::pow(10.0, exponents(draw));
    ASSERT_EQ(written(value), byTheLibrary(value));
    const auto narrow = static_cast<float>(-value);
    ASSERT_EQ(written(narrow), byTheLibrary(narrow));
    // Few digits, and the halves between them.
    const double few = std::round(value * 1e4) / 1e4;
    ASSERT_EQ(written(few), byTheLibrary(few));
  }
}

}  // namespace
