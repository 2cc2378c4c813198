#include "store/results/JsonCursor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace {

using polarline::results::JsonCursor;
using polarline::results::JsonFault;

std::string textOf(const std::string& json) {
  JsonCursor cursor(json);
  std::string text = cursor.text();
  cursor.end();
  return text;
}

void skipAll(const std::string& json) {
  JsonCursor cursor(json);
  cursor.skip();
  cursor.end();
}

bool isTaken(const std::string& json) {
  try {
    skipAll(json);
    return true;
  } catch (const JsonFault&) {
    return false;
  }
}

TEST(JsonCursorText, TakesEveryEscape) {
  EXPECT_EQ(textOf(R"("a\"\\\/\b\f\n\r\tz")"), "a\"\\/\b\f\n\r\tz");
  EXPECT_EQ(textOf(R"("\u0041\u00e9\u20AC\ud83d\ude00")"), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(JsonCursorText, RefusesWhatIsNone) {
  for (const char* json : {R"("\x")", R"("\u12g4")", R"("\u12)", R"("\ud800")", R"("\ud800\u0041")", R"("\udc00")",
                           "\"a", "\"a\nb\"", "\"\xFF\"", "1", ""})
    EXPECT_THROW(textOf(json), JsonFault) << json;
}

TEST(JsonCursorNumber, ReadsToTheSameDouble) {
  for (const auto& [json, value] : std::vector<std::pair<std::string, double>>{
           {"0", 0.0}, {"-0.5", -0.5}, {"1e3", 1000.0}, {"0.020432603082825642", 0.020432603082825642}, {"2E-2", 0.02}})
    EXPECT_EQ(JsonCursor(json).number(), value) << json;
  EXPECT_TRUE(std::isnan(JsonCursor("null").number()));
}

TEST(JsonCursorNumber, RefusesWhatIsNone) {
  for (const char* json : {"nan", "inf", ".5", "+1", "\"1\"", "-", "1e", "1.", "1e999", "true"})
    EXPECT_THROW(JsonCursor(json).number(), JsonFault) << json;
}

TEST(JsonCursorObject, GivesItsMembersInOrder) {
  JsonCursor cursor(R"( { "a" : [1, 2] , "b" : {} , "c" : true, "d": null } )");
  std::vector<std::string> keys;
  double sum = 0.0;
  cursor.object([&](std::string_view key) {
    keys.emplace_back(key);
    if (key == "a")
      cursor.array([&] { sum += cursor.number(); });
    else
      cursor.skip();
  });
  cursor.end();
  EXPECT_THAT(keys, ::testing::ElementsAre("a", "b", "c", "d"));
  EXPECT_EQ(sum, 3.0);
}

TEST(JsonCursorNull, IsTakenOnlyWhereItStands) {
  JsonCursor cursor("[null,false]");
  std::vector<bool> nulls;
  cursor.array([&] {
    nulls.push_back(cursor.null());
    if (!nulls.back()) {
      EXPECT_FALSE(cursor.truth());
    }
  });
  EXPECT_THAT(nulls, ::testing::ElementsAre(true, false));
}

/// Another reader of JSON says what is one.
TEST(JsonCursorSkip, TakesWhatIsJsonAndNothingElse) {
  for (const std::string& json : std::vector<std::string>{R"({"a":[1,-2.5e+3,"x\"y",true,false,null,{}],"b":{"c":[]}})",
                                                          "[]",
                                                          "{}",
                                                          " 1 ",
                                                          "[1,]",
                                                          "{\"a\"}",
                                                          "{\"a\":}",
                                                          "{,}",
                                                          "[1 2]",
                                                          "[01]",
                                                          "[1.]",
                                                          "[1e]",
                                                          "[-]",
                                                          "tru",
                                                          "nul",
                                                          "[1",
                                                          "{\"a\":1",
                                                          "]",
                                                          "1 1",
                                                          "",
                                                          "\"\n\"",
                                                          "{\"a\":1,}",
                                                          "{a:1}",
                                                          "[\"\t\"]",
                                                          "[+1]",
                                                          "[.1]",
                                                          "{\"a\":1 \"b\":2}",
                                                          "[1e308,1E400]",
                                                          "[1e308]",
                                                          "[0.01200001e308308128]",
                                                          "[1" + std::string(308, '0') + "]",
                                                          "[1" + std::string(309, '0') + "]",
                                                          R"(["\x"])",
                                                          R"(["\ud800"])",
                                                          R"({"\u12g4":1})",
                                                          "[\"\xFF\"]",
                                                          "[\"\xC3\xA9\"]",
                                                          "{\"\xC3\":1}"})
    EXPECT_EQ(isTaken(json), nlohmann::json::accept(json)) << json;
}

TEST(JsonCursorSkip, RefusesTheCutOffBeginningOfEveryDocument) {
  const std::string whole = R"({"a":[1,-2.5e+3,"x\"y",true,null],"b":{"c":[]}})";
  for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_FALSE(isTaken(whole.substr(0, size))) << size;
  EXPECT_TRUE(isTaken(whole));
}

TEST(JsonCursorSkip, RefusesWhatIsNestedTooDeep) {
  EXPECT_TRUE(isTaken(std::string(32, '[') + std::string(32, ']')));
  EXPECT_FALSE(isTaken(std::string(33, '[') + std::string(33, ']')));
  EXPECT_FALSE(isTaken(std::string(1000000, '[')));
}

TEST(JsonCursorFault, TellsTheByte) {
  try {
    skipAll("[1, x]");
    FAIL();
  } catch (const JsonFault& fault) {
    EXPECT_STREQ(fault.what(), "byte 4: true or false was wanted");
  }
}

}  // namespace
