#include "report/read/ParseJson.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "polarline/errors.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

std::string problemOf(const std::string& text) {
  try {
    parseJson(text, "r.json");
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(ParseJsonOrder, IsThatOfTheText) {
  EXPECT_EQ(parseJson(R"({"b": 1, "a": [0.1, -0.0, 1e-7, null]})", "").dump(), R"({"b":1,"a":[0.1,-0.0,1e-07,null]})");
}

TEST(ParseJsonFault, IsToldWithItsPlace) {
  EXPECT_THAT(problemOf("{\n  \"a\": ?\n}"), HasSubstr("r.json: line 2, column 8"));
  EXPECT_THAT(problemOf(""), HasSubstr("is no JSON"));
  EXPECT_THAT(problemOf("{\"a\": \"\xFF\"}"), HasSubstr("is no JSON"));
  EXPECT_THAT(problemOf("[1e999]"), HasSubstr("beyond all bounds"));
}

TEST(ParseJsonDepth, HasABound) {
  EXPECT_EQ(problemOf(std::string(32, '[') + std::string(32, ']')), "");
  EXPECT_THAT(problemOf(std::string(33, '[') + std::string(33, ']')), HasSubstr("column 32: nested deeper than 32"));
  EXPECT_THAT(problemOf(std::string(1000000, '{')), HasSubstr("nested deeper"));
  EXPECT_EQ(problemOf("[\"" + std::string(40, '[') + "\\\"" + std::string(40, '[') + "\"]"), "") << "in a text";
}

std::string objectOf(int members) {
  std::string text;
  for (int k = 0; k < members; ++k) text += (k == 0 ? "{\"" : ",\"") + std::to_string(k) + "\":0";
  return text + "}";
}

TEST(ParseJsonMembers, HaveABound) {
  EXPECT_EQ(problemOf(objectOf(4000)), "");
  EXPECT_THAT(problemOf(objectOf(4001)), HasSubstr("more than 4000 members"));
}

}  // namespace
}  // namespace polarline
