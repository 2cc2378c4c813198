#include "tools/polarline/Terminal.h"

#include <gtest/gtest.h>

namespace {

using terminal::fitted;
using terminal::wrapped;

TEST(Terminal, WrapsAtBlanksAndMovesLaterLinesIn) {
  EXPECT_EQ(wrapped("one two three four", 9, 2), "one two\n  three\n  four\n");
  EXPECT_EQ(wrapped("  one two", 6, 0), "  one\ntwo\n");
  EXPECT_EQ(wrapped("", 9, 2), "\n");
}

TEST(Terminal, LeavesAWordThatIsLongerThanTheWidthWhole) {
  EXPECT_EQ(wrapped("see /a/very/long/path now", 10, 2), "see\n  /a/very/long/path\n  now\n");
}

TEST(Terminal, ShowsControlCharactersByTheirNumbers) {
  EXPECT_EQ(wrapped("a\x1b"
                    "b\nc",
                    20, 0),
            "a\\x1Bb\\x0Ac\n");
  EXPECT_EQ(fitted("a\x1b[2J\xFF\nb\n", 40), "a\\x1B[2J\\xFF\nb\n");
}

TEST(Terminal, LeavesLinesThatFitAsTheyAre) {
  const std::string text = "a    b\n\n      \n  c\n";
  EXPECT_EQ(fitted(text, 40), text);
}

TEST(Terminal, GoesOnWhereTheLastColumnBegins) {
  EXPECT_EQ(fitted("name   first second third\n", 20), "name   first second\n       third\n");
}

TEST(Terminal, PutsAColumnBelowWhereThereIsNoRoom) {
  EXPECT_EQ(fitted("--option FILE      first second third\n", 20), "--option FILE\n  first second third\n");
  EXPECT_EQ(fitted("                first second third\n", 20), "    first second\n    third\n");
}

TEST(Terminal, MovesTheRestOfASentenceIn) {
  EXPECT_EQ(fitted("one two three\n", 8), "one two\n  three\n");
  EXPECT_EQ(fitted("      one two three\n", 14), "      one two\n      three\n");
}

}  // namespace
