#include "board/sheet/TextWidth.h"

#include <gtest/gtest.h>

namespace {

TEST(TextWidth, AddsUpTheLetters) {
  EXPECT_EQ(boards::textWidth(""), 0.0);
  EXPECT_NEAR(boards::textWidth("a1."), 3 * 0.65, 1e-12);
  EXPECT_NEAR(boards::textWidth("MA="), 1.0 + 0.8 + 0.86, 1e-12);
}

TEST(TextWidth, CountsASequenceOnce) {
  EXPECT_NEAR(boards::textWidth("\xC3\xB6"), 0.86, 1e-12);
  EXPECT_NEAR(boards::textWidth("\xE2\x98\x83\xF0\x9F\x8E\xAF"), 2.0, 1e-12);
}

}  // namespace
