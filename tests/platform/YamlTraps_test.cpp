#include "platform/YamlTraps.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using documents::trapInYaml;

constexpr const char* kDash = "a dash behind its end";
constexpr const char* kRoot = "a root in brackets or of a named type";
constexpr const char* kLeft = "a line to the left of its root";
constexpr const char* kColon = "a line that begins with a colon";
constexpr const char* kEscape = "an unfinished escape at its end";

struct Trap {
  const char* name;
  const char* behindHeader;
  const char* told;
};

void PrintTo(const Trap& tested, std::ostream* stream) { *stream << tested.name; }

class YamlTrapsFound : public testing::TestWithParam<Trap> {};

TEST_P(YamlTrapsFound, IsTold) {
  const char* const told = trapInYaml("%YAML:1.0\n" + std::string(GetParam().behindHeader));
  ASSERT_NE(told, nullptr);
  EXPECT_STREQ(told, GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(Places, YamlTrapsFound,
                         testing::Values(Trap{"DashBehindTheEnd", "---\na: 1\n...\n-1\n", kDash},
                                         Trap{"DashOnTheLineOfTheEnd", "---\na: 1\n... - b\n", kDash},
                                         Trap{"DashBehindACommentOrTwo", "---\na: 1\n...\n# b\n  # c\n - 1\n", kDash},
                                         Trap{"DashBehindADirective", "---\na: 1\n...\n%YAML:1.0\n- 1\n", kDash},
                                         Trap{"DashBehindTheSecondEnd", "---\na: 1\n...\n---\nb: 2\n...\n--", kDash},
                                         Trap{"DashBehindTheEndOfNothing", "---\n...\n-", kDash},
                                         Trap{"DashBehindAListWithoutAMark", "- 1\n...\n- 2", kDash},
                                         Trap{"DashGluedToTheEnd", "---\na: 1\n...-\n", kDash},
                                         Trap{"MarkBehindARootOnTheLineOfAMark", "---%YAML:1.0\n---\n-\n", kLeft},
                                         Trap{"LineLeftOfAnIndentedRoot", "---\n  a: 1\n b: - 1\n", kLeft},
                                         Trap{"LineLeftOfAListOnTheLineOfAMark", "--- - 1\n  - 2\n", kLeft},
                                         Trap{"BracesAsRoot", "---\n{a: 1}\n---\n- 1\n", kRoot},
                                         Trap{"BracketsAsRoot", "---\n[1,]\n- 1\n", kRoot},
                                         Trap{"BracketsAsSecondRoot", "---\na: 1\n...\n--- [1]\n", kRoot},
                                         Trap{"TypeOfTheRoot", "--- !!map\n  a: 1\n- 1\n", kRoot},
                                         Trap{"ColonFirst", "---\na: 1\n: 2\n", kColon},
                                         Trap{"ColonFirstBehindBlanks", "---\na: {b: 1,\n   : 2}\n", kColon},
                                         Trap{"BackslashLast", "---\na: \"b\\", kEscape},
                                         Trap{"NumberOfAnEscapeLast", "---\na: [1,\"\\x41", kEscape},
                                         Trap{"DigitsOfAnEscapeLast", "---\na: \"\\123", kEscape},
                                         Trap{"DashBehindTwoDirectives", "---\na: 1\n...\n%a\n%b\n-", kDash},
                                         Trap{"LineLeftBehindDotsFartherRight", "---\n  a:\n    ...\n b: 1\n", kLeft}),
                         [](const auto& tested) { return std::string(tested.param.name); });

struct Text {
  const char* name;
  const char* behindHeader;
};

void PrintTo(const Text& tested, std::ostream* stream) { *stream << tested.name; }

class YamlTrapsText : public testing::TestWithParam<Text> {};

TEST_P(YamlTrapsText, HasNoTrap) {
  EXPECT_STREQ(trapInYaml("%YAML:1.0\n" + std::string(GetParam().behindHeader)), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, YamlTrapsText,
    testing::Values(
        Text{"Empty", ""}, Text{"MarkOnly", "---"}, Text{"MarkAndEnd", "---\n..."},
        Text{"Map", "---\na: 1\nb: [1, -2,\n  -3]\nc:\n  - 1\n"}, Text{"MapWithoutAMark", "a: 1\n"},
        Text{"List", "---\n- 1\n- - 2\n  - 3\n---\n"}, Text{"IndentedRoot", "---\n  a: 1\n  b: 2\n"},
        Text{"RootOnTheLineOfTheMark", "--- a: 1\n    b: 2\n"}, Text{"EndOfAnIndentedRoot", "---\n  a: 1\n...\n"},
        Text{"EndAtAnIndentedRoot", "---\n  a: 1\n  ...\n"}, Text{"TwoDocuments", "---\na: 1\n...\n---\nb: 2\n"},
        Text{"TwoDocumentsWithADirective", "---\na: 1\n...\n%YAML:1.0\n--- # c\nb: 2\n...\n"},
        Text{"WhatTheParserRefusesItself", "---\na: 1\n...b\n...\n-"},
        Text{"CommentsAnywhere", "# -\n---\n# - : ...\n  a: 1\n# b\n#...\n  c: 2 # d\n...\n# -\n"},
        Text{"DotsAsAValue", "---\na: ...\nb:\n  ...\nc: 1\n"}, Text{"BackslashInside", "---\na: \"b\\\\\""},
        Text{"NumberOfAnEscapeAndALineEnd", "---\na: \"\\x41\n"},
        Text{"LinesOfWindows", "---\r\na: 1\r\n\r\nb: 2\r\n...\r\n"},
        Text{"WhatACarriageReturnCutsOff", "---\n  a: 1\n\r- 1\n  b: 2\n"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(YamlTraps, ATextWithoutAHeaderIsGoneThroughAlike) {
  EXPECT_STREQ(trapInYaml(" # b\n---\na: 1\n...\n-"), kDash);
  EXPECT_EQ(trapInYaml(""), nullptr);
}

}  // namespace
