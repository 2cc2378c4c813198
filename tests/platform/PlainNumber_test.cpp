#include "platform/PlainNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "support/CommaLocale.h"

namespace {

struct Case {
  double value;
  int digits;
  const char* text;
};

struct PlainNumberRounded : testing::TestWithParam<Case> {};

TEST_P(PlainNumberRounded, HasNoExponent) {
  const Case& each = GetParam();
  EXPECT_EQ(plain::rounded(each.value, each.digits), each.text);
  EXPECT_EQ(plain::rounded(-each.value, each.digits), each.value == 0.0 ? "0" : std::string("-") + each.text);
}

INSTANTIATE_TEST_SUITE_P(Sizes, PlainNumberRounded,
                         testing::Values(Case{5.5e-05, 2, "0.000055"}, Case{0.0123456, 3, "0.0123"},
                                         Case{0.0500, 3, "0.05"}, Case{0.0, 3, "0"}, Case{1.0, 3, "1"},
                                         Case{9.996, 3, "10"}, Case{0.00009999, 3, "0.0001"}, Case{99.96, 3, "100"},
                                         Case{1234.5, 3, "1234"}, Case{12345.6, 3, "12346"}, Case{400.0, 2, "400"},
                                         Case{1.5e-12, 2, "0.0000000000015"}, Case{1.5e-13, 2, "1.5e-13"},
                                         Case{2e15, 3, "2e+15"}, Case{HUGE_VAL, 3, "inf"}));

TEST(PlainNumberWithError, LetsTheValueEndWhereItsErrorDoes) {
  EXPECT_EQ(plain::withError(3.6749, 0.1234), "3.67 ± 0.12");
  EXPECT_EQ(plain::withError(0.03002, 0.0000156), "0.030020 ± 0.000016");
  EXPECT_EQ(plain::withError(-1.0, 0.05), "-1.00 ± 0.05");
  EXPECT_EQ(plain::withError(1234.5, 123.4), "1234 ± 123");
}

TEST(PlainNumberWithError, KeepsTheValuesOwnDigitsWithoutAnErrorThatTellsWhereToEnd) {
  EXPECT_EQ(plain::withError(0.1234, 0.0), "0.123 ± 0");
  EXPECT_EQ(plain::withError(0.1234, HUGE_VAL), "0.123 ± inf");
  EXPECT_EQ(plain::withError(0.1234, 1e-13), "0.123 ± 1e-13");
  EXPECT_EQ(plain::withError(std::numeric_limits<double>::quiet_NaN(), 0.1), "nan ± 0.1");
}

TEST(PlainNumberExact, ReadsBackToTheSameNumber) {
  EXPECT_EQ(plain::exact(3.0517578125e-05), "0.000030517578125");
  EXPECT_EQ(plain::exact(0.1F), "0.1");
  EXPECT_EQ(plain::exact(0.1), "0.1");
  EXPECT_EQ(plain::exact(0.0), "0");
  EXPECT_EQ(plain::exact(-123456789012.0), "-123456789012");
  EXPECT_EQ(plain::exact(1e-20), "1e-20");
  for (const double value : {1.0 / 3.0, 1e-7 / 3.0, 1e14 / 3.0}) {
    EXPECT_EQ(std::strtod(plain::exact(value).c_str(), nullptr), value);
    const auto narrow = static_cast<float>(value);
    EXPECT_EQ(std::strtof(plain::exact(narrow).c_str(), nullptr), narrow);
  }
}

TEST(PlainNumberExact, IsTheSameInEveryLocale) {
  const CommaLocale locale;
  EXPECT_EQ(plain::exact(0.5), "0.5");
  EXPECT_EQ(plain::rounded(0.5, 2), "0.5");
}

TEST(PlainNumberRounded, KeepsWhatIsNoNumber) {
  EXPECT_EQ(plain::rounded(std::numeric_limits<double>::quiet_NaN(), 3), "nan");
}

}  // namespace
