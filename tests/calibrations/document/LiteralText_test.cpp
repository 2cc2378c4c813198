#include "calibrations/document/LiteralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/Texts.h"

namespace {

using calibrations::valueOfLiteral;
using testing::HasSubstr;

std::string lineOf(const std::string& text) { return line(valueOfLiteral(text, "file")); }
std::string refused(const std::string& text) { return refusedBy(valueOfLiteral, text); }

TEST(LiteralText, HoldsListsMapsAndTuples) {
  EXPECT_EQ(lineOf("{'a': [1, -2.5e-3], \"b\": (True, None), 'c': {}, 'd': [], 'e': 'text'}"),
            "{a=[1 -2.5e-3] b=[True ~] c={} d=[] e=text}");
}

TEST(LiteralText, HasCommentsAndTrailingCommas) {
  EXPECT_EQ(lineOf("# first\n{ # second\n 'a' : [ 1, 2, ], # 'b': 3,\n}\n# last"), "{a=[1 2]}");
}

TEST(LiteralText, SkipsBytes) {
  EXPECT_EQ(lineOf(R"({'a': b'x\'y\\', 'b': b"it's", 'c': 1})"), "{a=~ b=~ c=1}");
  EXPECT_EQ(lineOf("{'a': b'" + std::string(500000, 'x') + "', 'c': 1}"), "{a=~ c=1}");
}

TEST(LiteralText, IsRefusedWhereItIsNone) {
  EXPECT_EQ(refused("{'a': 1"), "file: line 1: has its end; a comma or } was wanted");
  EXPECT_EQ(refused("{\n'a' 1}"), "file: line 2: has '1'; a colon was wanted");
  EXPECT_EQ(refused("{a: 1}"), "file: line 1: has 'a'; a key in quotes was wanted");
  EXPECT_EQ(refused("{'a': ,}"), "file: line 1: has ','; a value was wanted");
  EXPECT_EQ(refused("{'a': [1 2]}"), "file: line 1: has '2'; a comma or ] was wanted");
  EXPECT_EQ(refused("{'a': 1} x"), "file: line 1: has 'x' behind its end");
  EXPECT_EQ(refused("{'a': 'x\n'}"), "file: line 1: has a text that does not end");
  EXPECT_EQ(refused("{'a': b'x\\"), "file: line 1: has a text that does not end");
  EXPECT_EQ(refused("{'a': 'x\\n'}"), "file: line 1: has a backslash in a text, which is not read");
  EXPECT_EQ(refused("{'a': (1, 2]}"), "file: line 1: has ']'; a comma or ) was wanted");
}

TEST(LiteralText, IsRefusedWhereItIsATrap) {
  EXPECT_EQ(refused("{'a': 1, 'a': 2}"), "file: line 1: has the key 'a' twice, which is not read");
  EXPECT_EQ(refused(std::string(1000000, '[')), "file: line 1: has more than 32 levels, which is not read");
}

}  // namespace
