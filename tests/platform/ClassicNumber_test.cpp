#include "platform/ClassicNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/CommaLocale.h"

struct NumberCase {
  std::string text;
  double value;
};

class ClassicNumberToDouble : public testing::TestWithParam<NumberCase> {};

TEST_P(ClassicNumberToDouble, GivesTheNumberAtTheStart) {
  EXPECT_EQ(classic::toDouble(GetParam().text), GetParam().value);
}

TEST_P(ClassicNumberToDouble, GivesTheSameInACommaLocale) {
  const CommaLocale comma;
  EXPECT_EQ(classic::toDouble(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ClassicNumberToDouble,
    testing::Values(NumberCase{"", 0.0}, NumberCase{"abc", 0.0}, NumberCase{"1.5", 1.5}, NumberCase{"  -2.25mm", -2.25},
                    NumberCase{"+3", 3.0}, NumberCase{"\t4\r", 4.0}, NumberCase{"1,5", 1.0}, NumberCase{"1e2", 100.0},
                    NumberCase{"7e", 7.0}, NumberCase{".5", 0.5}, NumberCase{"-", 0.0}, NumberCase{"0x10", 16.0},
                    NumberCase{"inf", std::numeric_limits<double>::infinity()},
                    NumberCase{"-1e999", -std::numeric_limits<double>::infinity()}, NumberCase{"1e-999", 0.0},
                    NumberCase{std::string("1\0"
                                           "2",
                                           3),
                               1.0}));

TEST(ClassicNumber, ReadsNotANumber) { EXPECT_TRUE(std::isnan(classic::toDouble("nan"))); }
