#include "platform/Printable.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using plain::isPlainLine;
using plain::onOneLine;
using plain::printable;

TEST(Printable, ShowsControlCharactersByTheirNumbers) {
  EXPECT_EQ(printable("a\x1b[2J\tb\x7f\r\n"), "a\\x1B[2J\\x09b\\x7F\\x0D\n");
  EXPECT_EQ(printable("\xC2\x9B"
                      "1m"),
            "\\xC2\\x9B1m");
}

TEST(Printable, ShowsBytesThatAreNoCharacterByTheirNumbers) {
  EXPECT_EQ(printable("\xFF\xC3(\xE2\x82"), "\\xFF\\xC3(\\xE2\\x82");
  EXPECT_EQ(printable("\x9B"
                      "31m"),
            "\\x9B31m")
      << "alone it is what ESC [ is to some terminals";
}

TEST(Printable, LeavesWords) {
  const std::string words = "\xC2\xB1 \xC3\xA4 \xE2\x82\xAC \xC2\xA0 \xC3\x9B \xF0\x9F\x99\x82";
  EXPECT_EQ(printable(words), words);
  EXPECT_EQ(onOneLine(words), words);
  EXPECT_TRUE(isPlainLine(words));
}

TEST(Printable, PutsLineEndsOnOneLineWhereThatIsWanted) {
  EXPECT_EQ(onOneLine("a\nPASS\n"), "a\\x0APASS\\x0A");
  EXPECT_FALSE(isPlainLine("a\nb"));
  EXPECT_FALSE(isPlainLine("\xFF"));
}

}  // namespace
