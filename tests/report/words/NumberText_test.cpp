#include "report/words/NumberText.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

TEST(NumberTextOf, HasTheDigitsThatCount) {
  EXPECT_EQ(numberText(0.9632085, 3), "0.963");
  EXPECT_EQ(numberText(-0.9632085, 4), "-0.9632");
  EXPECT_EQ(numberText(481.41463, 4), "481.4");
  EXPECT_EQ(numberText(0.0, 4), "0");
}

TEST(NumberTextOf, HasNoExponentThatAFigureNeeds) {
  EXPECT_EQ(numberText(7.2512e-5, 3), "0.0000725");
  EXPECT_EQ(numberText(-6.5349e-5, 3), "-0.0000653");
  EXPECT_EQ(numberText(12345.6, 3), "12346");
  EXPECT_EQ(numberText(1234.56, 3), "1235");
  EXPECT_EQ(numberText(2.5e-9, 3), "2.5e-09");
  EXPECT_EQ(numberText(2.5e9, 3), "2.5e+09");
}

}  // namespace
}  // namespace polarline
