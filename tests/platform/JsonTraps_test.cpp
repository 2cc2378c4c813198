#include "platform/JsonTraps.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using documents::trapInJson;

struct Text {
  const char* name;
  std::string text;
};

void PrintTo(const Text& tested, std::ostream* stream) { *stream << tested.name; }

class JsonTrapsJsonBase64 : public testing::TestWithParam<Text> {};

TEST_P(JsonTrapsJsonBase64, IsTold) { EXPECT_STREQ(trapInJson(GetParam().text), "base64 data"); }

INSTANTIATE_TEST_SUITE_P(
    Places, JsonTrapsJsonBase64,
    testing::Values(Text{"Value", R"({"a":"$base64$)"}, Text{"ValueOnItsOwnLine", "{\"a\"\n:\n\"$base64$AA\"}"},
                    Text{"Item", R"({"a": ["b", "$base64$AA"]})"},
                    Text{"ItemBehindAnObject", R"({"a": [{"b": 1}, "$base64$"]})"},
                    Text{"ValueBehindAList", R"({"a": [1, "b"], "c": "$base64$"})"},
                    Text{"BehindAKeyThatEndsInABackslash", R"({"a\":"$base64$AA"})"},
                    Text{"BehindAStringThatEndsInABackslash", R"({"a": "b\\", "c": "$base64$AA"})"},
                    Text{"BehindAQuoteInAString", R"({"a": "b\"", "c": "$base64$AA"})"},
                    Text{"BehindTheShortestComment", R"({"a": /**/ "$base64$AA"})"},
                    Text{"BehindACommentOfStars", R"({"a": /* " **/ "$base64$AA"})"},
                    Text{"BehindACommentInAList", "{\"a\": [ // ]} \"\n \"$base64$AA\"]}"},
                    Text{"BehindACarriageReturnInAComment", "{/* \r */\"a\": \"$base64$AA\"}"},
                    Text{"BehindWhatACarriageReturnCutsOff", "{\"a\":\r \" }\n\"$base64$AA\"}"},
                    Text{"BehindACommentThatACarriageReturnEnds", "{\"a\":// \r \" }\n\"$base64$AA\"}"}),
    [](const auto& tested) { return std::string(tested.param.name); });

class JsonTrapsJsonText : public testing::TestWithParam<Text> {};

TEST_P(JsonTrapsJsonText, HasNoTrap) { EXPECT_STREQ(trapInJson(GetParam().text), nullptr); }

INSTANTIATE_TEST_SUITE_P(Forms, JsonTrapsJsonText,
                         testing::Values(Text{"Empty", ""}, Text{"Key", R"({"$base64$": 1})"},
                                         Text{"KeyBehindAComma", R"({"a": 1, "$base64$": 1})"},
                                         Text{"InsideAString", R"({"a": " $base64$ \"$base64$"})"},
                                         Text{"Comment", "{ // \"$base64$\n}"},
                                         Text{"LongComment", "{/*/ \"a\": \"$base64$\" */}"},
                                         Text{"AnotherMark", R"({"a": "$base64", "b": "base64$"})"},
                                         Text{"BehindTheRoot", R"({"a": [1, {}]} "$base64$ [)"},
                                         Text{"CutOffByACarriageReturn", "{\"a\": 1\r, \"b\": \"$base64$\"\n}"},
                                         Text{"StringOfTwoLines", "{\"a\": \"b\n\", \"c\": \"$base64$\"}"},
                                         Text{"KeyOfTwoLines", "{\"a\n\": \"$base64$\"}"},
                                         Text{"CommentWithoutAnEnd", "{/* \"a\": \"$base64$\""},
                                         Text{"StringWithoutAnEnd", "{\"a\": \"b\\"},
                                         Text{"ClosingBracketsOnly", "]}\"$base64$\""}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
