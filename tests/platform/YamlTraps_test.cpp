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
constexpr const char* kBase64 = "base64 data";

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
                                         Trap{"BracketsBehindTheEnd", "---\na: 1\n...\n[", kRoot},
                                         Trap{"TypeBehindTheEnd", "---\na: 1\n...\n!!binary |", kRoot},
                                         Trap{"Base64BehindTheEnd", "---\na: 1\n...\n*b: !!binary", kBase64},
                                         Trap{"TypeOfTheRoot", "--- !!map\n  a: 1\n- 1\n", kRoot},
                                         Trap{"ColonFirst", "---\na: 1\n: 2\n", kColon},
                                         Trap{"ColonFirstBehindBlanks", "---\na: {b: 1,\n   : 2}\n", kColon},
                                         Trap{"ColonFirstInASecondRow", "---\na: {b: [1,2],\n   c: 1\n   , \n : 2}",
                                              kColon},
                                         Trap{"BackslashLast", "---\na: \"b\\", kEscape},
                                         Trap{"BackslashLastBehindAnEscape", "---\na: \"\\n\\", kEscape},
                                         Trap{"DigitOfAnEscapeLast", "---\na: \"\\7", kEscape},
                                         Trap{"NumberOfAnEscapeLast", "---\na: [1,\"\\x41", kEscape},
                                         Trap{"DigitsOfAnEscapeLast", "---\na: \"\\123", kEscape},
                                         Trap{"DashBehindTwoDirectives", "---\na: 1\n...\n%a\n%b\n-", kDash},
                                         Trap{"LineLeftBehindDotsFartherRight", "---\n  a:\n    ...\n b: 1\n", kLeft}),
                         [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(Base64, YamlTrapsFound,
                         testing::Values(Trap{"Value", "---\na: !!binary |\n  AA\n", kBase64},
                                         Trap{"ValueWithACaret", "---\na: !^binary |\n", kBase64},
                                         Trap{"ValueOfTheFullType", "---\na: !<tag:yaml.org,2002:binary>|\n", kBase64},
                                         Trap{"TypeEndsWithTheText", "---\na: !!binary", kBase64},
                                         Trap{"TypeEndsAtATab", "---\na: !!binary\t|\n", kBase64},
                                         Trap{"OnTheNextLine", "---\na:\n  # b\n  !!binary |\n", kBase64},
                                         Trap{"Item", "---\n- - 1\n  - !!binary |\n", kBase64},
                                         Trap{"ItemWithoutABlank", "---\n- 1\n-!!binary |\n", kBase64},
                                         Trap{"ValueInAMapOfOneLine", "---\na: b: c: !!binary |\n", kBase64},
                                         Trap{"ValueBehindANestedMap", "---\na:\n  b: 1\nc: !!binary |\n", kBase64},
                                         Trap{"ValueInTheSecondDocument", "---\na: 1\n...\n---\nb: !!binary |\n",
                                              kBase64},
                                         Trap{"ItemInBrackets", "---\na: [1, [ ], !!binary ]\n", kBase64},
                                         Trap{"FirstItemInBrackets", "---\na: [!!binary ]\n", kBase64},
                                         Trap{"ValueInBraces", "---\na: {b: [c: d, -e], f: !!binary }\n", kBase64},
                                         Trap{"ValueBehindBrackets", "---\na: [b: c, {}]\nd: !!binary\n", kBase64},
                                         Trap{"ItemBehindAType", "---\na: !!b - !!binary\n", kBase64}),
                         [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Base64Behind, YamlTrapsFound,
    testing::Values(
        Trap{"KeyOfABracket", "---\na: {[b: !!binary }\n", kBase64},
        Trap{"KeyOfAQuote", "---\na: {\"b: !!binary }\n", kBase64},
        Trap{"KeyOfABrace", "---\na: {b: 1, }c: !!binary }\n", kBase64},
        Trap{"KeyOfACross", "---\na: 1\nb#: !!binary\n", kBase64},
        Trap{"KeyOfABracketInALine", "---\na: 1\nb[: !!binary\n", kBase64},
        Trap{"TextOfABracket", "---\na: [b[, !!binary ]\n", kBase64},
        Trap{"TextOfACross", "---\na: b # [\nc: !!binary\n", kBase64},
        Trap{"TextOfAColonInBrackets", "---\na: [b:, !!binary\n", kBase64},
        Trap{"NamedTextOfAColon", "---\na: !str b: [c\nd: !!binary\n", kBase64},
        Trap{"NamedTextOfAColonWithABracket", "---\na: !<str b: [c\nd: !!binary\n", kBase64},
        Trap{"NamedTextInQuotes", "---\na: !str \"b\" # [\nc: !!binary\n", kBase64},
        Trap{"NumberAndAComment", "---\na: [-1 # ]\n  , !!binary ]\n", kBase64},
        Trap{"FractionAndAComment", "---\na: [.5 # ]\n  , -.5# ]\n , 1.5e-5 # ]\n  , !!binary ]\n", kBase64},
        Trap{"NamedNumberAndAComment",
             "---\na: [!float -1 # ]\n  , !int +1 # ]\n  , !<int -1 # ]\n , !<float -1 # ]\n  , !!binary ]\n", kBase64},
        Trap{"NoNumberInBrackets", "---\na: [!float nan(1), !!binary ]\n", kBase64},
        Trap{"TypedNumber", "---\na: !!b -1\nc: !!binary\n", kBase64},
        Trap{"TypedTextLikeANumber", "---\na: [!!b -1 # , !!binary ]\n", kBase64},
        Trap{"TextsInSingleQuotes", "---\na: ['b''# ', 'c\\', '', !!binary ]\n", kBase64},
        Trap{"TextsInDoubleQuotes", "---\na: [\"b\\\"# \", \"c\\\\\", \"\", !!binary ]\n", kBase64},
        Trap{"TextAndAComment", "---\na: \"b\"# c [\nd: 'e'# [\nf: !!binary\n", kBase64},
        Trap{"TypeAndBrackets", "---\na: !<tag:yaml.org,2002:b>[1, !!binary ]\n", kBase64},
        Trap{"TypeWithoutAName", "---\na: !<tag:yaml.org,2002:>[1] b\nc: !!binary\n", kBase64},
        Trap{"WhatIsCutOff", "---\na: b\rc: [\nd: [e\r]\n  , !!binary ]\n", kBase64},
        Trap{"TwoListsThatEndInAComma", "---\na: [[[1,], !!binary ]\n", kBase64},
        Trap{"CommaBehindTheFirstBracket", "---\na: [[], [[1],\n  !!binary ]]\n", kBase64}),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Base64BehindTheEscape, YamlTrapsFound,
    testing::Values(Trap{"OctalNumber", "---\na: [\"\\x41\" # \", !!binary ]\n", kBase64},
                    Trap{"OctalNumberOfOneDigit", "---\na: [\"\\x7\" # \", !!binary ]\n", kBase64},
                    Trap{"OctalNumberBehindABlank", "---\na: [\"\\x 7\" # \", !!binary ]\n", kBase64},
                    Trap{"NoOctalNumber", "---\na: [\"\\x9\", !!binary ]\n", kBase64},
                    Trap{"HexadecimalNumber", "---\na: [\"\\1Fa\" # \", !!binary ]\n", kBase64},
                    Trap{"HexadecimalNumberOfOneDigit", "---\na: [\"\\0\" # \", !!binary ]\n", kBase64},
                    Trap{"HexadecimalNumberOfFourDigits", "---\na: [\"\\1234\", !!binary ]\n", kBase64},
                    Trap{"NoHexadecimalNumber", "---\na: [\"\\8\", !!binary ]\n", kBase64},
                    Trap{"OtherEscape", "---\na: [\"\\q\", !!binary ]\n", kBase64}),
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

INSTANTIATE_TEST_SUITE_P(
    Likenesses, YamlTrapsText,
    testing::Values(Text{"Comment", "---\na: 1 # !!binary\n# !!binary\n"},
                    Text{"Text", "---\na: b !!binary\nc: [d !!binary, e: !!binary]\n"},
                    Text{"Quoted", "---\na: '!!binary'\nb: [\"!!binary\"]\n"},
                    Text{"Key", "---\na: 1\n!!binary: 2\nb: {!!binary: 3}\n"}, Text{"OneMark", "---\na: !binary b\n"},
                    Text{"LongerName", "---\na: !!binaries b\nc: !!base64 d\n"},
                    Text{"LongerFullName", "---\na: !<tag:yaml.org,2002:binaries> b\n"},
                    Text{"BlankInTheFullName", "---\na: !<tag:yaml.org,2002:binary b>\n"},
                    Text{"TypeWithoutItsBracket", "---\na: !<tag:yaml.org,2002:b !!binary\n"},
                    Text{"BehindAType", "---\na: !!b !!binary\n"},
                    Text{"CutOff", "---\na: 1\r!!binary\nb: [1\r, !!binary\n  ]\n"},
                    Text{"NumberAndAComment", "---\na: [1 # , !!binary\n  ]\n"},
                    Text{"BackslashOutsideQuotes", "---\na: b\\"}, Text{"BackslashInSingleQuotes", "---\na: 'b\\"},
                    Text{"BackslashInAComment", "---\na: 1 # \\x41"}, Text{"PathAtTheEnd", "---\na: c:\\dir\\abc"},
                    Text{"EscapeWithoutANumber", "---\na: \"\\x"}, Text{"ColonFirstInAList", "---\na: [1,\n  : b]\n"},
                    Text{"ColonBehindABrace", "---\na: { : 2}\n"}, Text{"ColonFirstInAText", "---\na:\n  b: - :\n"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(YamlTraps, ATextWithoutAHeaderIsGoneThroughAlike) {
  EXPECT_STREQ(trapInYaml(" # b\n---\na: 1\n...\n-"), kDash);
  EXPECT_EQ(trapInYaml(""), nullptr);
}

}  // namespace
