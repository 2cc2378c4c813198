#include "check/set/ShellWord.h"

#include <gtest/gtest.h>

namespace {

using polarline::shellWord;

TEST(ShellWord, IsQuotedWhereAShellWouldTakeItForMore) {
  EXPECT_EQ(shellWord("sets/rig_2-a.b"), "sets/rig_2-a.b");
  EXPECT_EQ(shellWord("my set"), "'my set'");
  EXPECT_EQ(shellWord("it's"), "'it'\\''s'");
  EXPECT_EQ(shellWord("$(x)"), "'$(x)'");
  EXPECT_EQ(shellWord(""), "''");
  EXPECT_EQ(shellWord("-x"), "'-x'") << "no shell takes the quotes for more, but nobody reads it as an option";
}

TEST(ShellWord, IsOnOneLineWhateverBytesItHas) {
  EXPECT_EQ(shellWord("a\nit's \\ \xFF"), "$'a\\x0Ait\\'s \\\\ \\xFF'");
  EXPECT_EQ(shellWord("\xC3\xA9"), "'\xC3\xA9'");
}

}  // namespace
