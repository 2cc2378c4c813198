#include "tools/scene/JsonDocument.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"

namespace {

std::string refusal(const std::string& text) {
  try {
    scene::jsonDocument(text, "s.json");
    return {};
  } catch (const polarline::InputError& error) {
    return error.what();
  }
}

TEST(JsonDocument, KeepsTheOrderOfMembers) {
  EXPECT_EQ(scene::jsonDocument(R"({"b": 1, "a": [2]})", "s.json").dump(), R"({"b":1,"a":[2]})");
}

struct Refused {
  const char* text;
  const char* message;
};

struct JsonDocumentRefuses : testing::TestWithParam<Refused> {};

TEST_P(JsonDocumentRefuses, WithLineColumnAndKeyInOurWords) { EXPECT_EQ(refusal(GetParam().text), GetParam().message); }

INSTANTIATE_TEST_SUITE_P(
    Places, JsonDocumentRefuses,
    testing::Values(
        Refused{"", "s.json, line 1, column 1: found the end of the file, wanted a value in JSON"},
        Refused{"{\"a\": 1",
                "s.json, line 1, column 8, behind the key a: found the end of the file, wanted ',' or '}'"},
        Refused{"{\"a\": {\n  \"b\": 1,\n}}",
                "s.json, line 3, column 1, behind the key a.b: found '}', wanted a key in double quotes"},
        Refused{"{'a': 1}", "s.json, line 1, column 2: found ''', wanted a key in double quotes"},
        Refused{"{\"a\" 1}",
                "s.json, line 1, column 6, behind the key a: found '1', wanted ':' and a value behind the key"},
        Refused{"{\"a\": [1 2]}", "s.json, line 1, column 10, behind the key a: found '2', wanted ',' or ']'"},
        Refused{"{\"a\": ,}", "s.json, line 1, column 7, behind the key a: found ',', wanted a value in JSON"},
        Refused{"{}\n\n}", "s.json, line 3, column 1: found '}', wanted nothing more"},
        Refused{"{\"a\": \xFF}",
                "s.json, line 1, column 7, behind the key a: found the byte 255, wanted a value in JSON"},
        Refused{"{\"a\": 1e999}", "s.json: a: found a number beyond all that a double holds, wanted less"},
        Refused{"{\"a\": {\"b\": 1, \"b\": 2}}", "s.json: a.b: found twice in an object, wanted once"}));

}  // namespace
