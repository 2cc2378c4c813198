#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8, TakesEveryLengthAtItsEnds) {
  for (const char* text : {"", "a", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                           "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA9z"})
    EXPECT_TRUE(utf8::isValid(text)) << text;
}

TEST(Utf8, RefusesWhatRfc3629DoesNotKnow) {
  for (const char* text : {"\x80", "\xC0\x80", "\xC1\xBF", "\xC2", "\xC2z", "\xE0\x9F\xBF", "\xE1\x80", "\xED\xA0\x80",
                           "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "a\xE2\x82"})
    EXPECT_FALSE(utf8::isValid(text)) << text;
}

TEST(Utf8, CountsTheBytesOfTheFirstCharacter) {
  EXPECT_EQ(utf8::length("a\xC3\xA9"), 1U);
  EXPECT_EQ(utf8::length("\xC3\xA9z"), 2U);
  EXPECT_EQ(utf8::length("\xE2\x82\xAC\xAC"), 3U);
  EXPECT_EQ(utf8::length("\xF0\x9F\x99\x82"), 4U);
  EXPECT_EQ(utf8::length("\xE2\x82"), 0U);
  EXPECT_EQ(utf8::length("\xE2\x82z"), 0U);
  EXPECT_EQ(utf8::length(""), 0U);
}

}  // namespace
