#include "check/document/JsonText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace polarline {
namespace {

std::string textOf(std::string_view bytes) { return JsonText().value(bytes).take(); }

struct Text {
  std::string bytes;
  std::string json;
};

class JsonTextString : public ::testing::TestWithParam<Text> {};

TEST_P(JsonTextString, IsQuotedUtf8) {
  EXPECT_EQ(textOf(GetParam().bytes), GetParam().json);
  EXPECT_TRUE(nlohmann::json::accept(GetParam().json));
}

const std::string kMark = "\xEF\xBF\xBD";  // U+FFFD

INSTANTIATE_TEST_SUITE_P(All, JsonTextString,
                         ::testing::Values(Text{"", R"("")"}, Text{"a b", R"("a b")"}, Text{"\"\\/", R"("\"\\/")"},
                                           Text{"\n\t\x01\x1f", "\"\\u000a\\u0009\\u0001\\u001f\""},
                                           Text{std::string(1, '\0'), "\"\\u0000\""}, Text{"\x7f", "\"\x7f\""},
                                           Text{"\xC3\xA4", "\"\xC3\xA4\""}, Text{"\xE2\x82\xAC", "\"\xE2\x82\xAC\""},
                                           Text{"\xF0\x9F\x98\x80", "\"\xF0\x9F\x98\x80\""},
                                           Text{"a\xFF"
                                                "b",
                                                "\"a" + kMark + "b\""},
                                           Text{"\x80", '"' + kMark + '"'},              // A byte that only follows.
                                           Text{"\xC3", '"' + kMark + '"'},              // Cut off.
                                           Text{"\xC0\xAF", '"' + kMark + kMark + '"'},  // A longer form of '/'.
                                           Text{"\xE0\x80\xAF", '"' + kMark + kMark + kMark + '"'},  // The same.
                                           Text{"\xED\xA0\x80", '"' + kMark + kMark + kMark + '"'},  // A surrogate.
                                           Text{"\xF4\x90\x80\x80",
                                                '"' + kMark + kMark + kMark + kMark + '"'},  // Beyond Unicode.
                                           Text{"\xF5", '"' + kMark + '"'}));

class JsonTextDouble : public ::testing::TestWithParam<double> {};

TEST_P(JsonTextDouble, ReadsBackToTheSameBits) {
  const auto read = nlohmann::json::parse(JsonText().value(GetParam()).take()).get<double>();
  EXPECT_EQ(read, GetParam());
  EXPECT_EQ(std::signbit(read), std::signbit(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, JsonTextDouble,
                         ::testing::Values(0.0, -0.0, 0.1, 1.0 / 3.0, 5e-324, 2.2250738585072014e-308,
                                           1.7976931348623157e308, 9007199254740993.0, 1e22, 1e23, -123456.789));

class JsonTextFloat : public ::testing::TestWithParam<float> {};

TEST_P(JsonTextFloat, ReadsBackToTheSameFloat) {
  const std::string text = JsonText().value(GetParam()).take();
  EXPECT_EQ(std::stof(text), GetParam()) << text;
  EXPECT_EQ(static_cast<float>(nlohmann::json::parse(text).get<double>()), GetParam());
  EXPECT_LE(text.size(), 15U);
}

INSTANTIATE_TEST_SUITE_P(All, JsonTextFloat,
                         ::testing::Values(0.0F, 0.1F, 1.0F / 3.0F, 16777217.0F, 3.4028235e38F, 1.17549435e-38F,
                                           -0.014075949F));

TEST(JsonTextNumber, ThatIsNotFiniteIsNull) {
  EXPECT_EQ(JsonText().value(std::nan("")).take(), "null");
  EXPECT_EQ(JsonText().value(std::numeric_limits<double>::infinity()).take(), "null");
  EXPECT_EQ(JsonText().value(-std::numeric_limits<float>::infinity()).take(), "null");
}

TEST(JsonTextNumber, IsWholeWhereItsTypeIs) {
  EXPECT_EQ(JsonText().value(std::int64_t{-9007199254740993}).take(), "-9007199254740993");
  EXPECT_EQ(JsonText().value(std::size_t{7}).take(), "7");
  EXPECT_EQ(JsonText().value(true).take(), "true");
}

TEST(JsonTextPieces, MakeOneDocument) {
  JsonText json;
  std::string text;
  json.object().member("a", 1).key("list").array();
  text += json.take();
  for (int k = 0; k < 3; ++k) {
    json.object().member("k", k).key("deep").object().member("n", std::string("x")).end().end();
    text += json.take();
  }
  json.value(2.5).end().list("none", std::vector<double>{}).key("empty").object().end().key("raw").raw("[1, 2]");
  json.key("nothing").null().end();
  text += json.take();
  const nlohmann::json read = nlohmann::json::parse(text);
  const auto item = [](int k) { return nlohmann::json{{"k", k}, {"deep", {{"n", "x"}}}}; };
  const nlohmann::json wanted = {{"a", 1},
                                 {"list", {item(0), item(1), item(2), 2.5}},
                                 {"none", nlohmann::json::array()},
                                 {"empty", nlohmann::json::object()},
                                 {"raw", {1, 2}},
                                 {"nothing", nullptr}};
  EXPECT_EQ(read, wanted);
  EXPECT_EQ(json.take(), "");
}

TEST(JsonTextShort, HasNoBlanksAndNoLines) {
  JsonText json(JsonText::Form::kShort);
  json.object().member("a", 1).list("b", std::vector<double>{0.5, -0.0}).key("c").object().end().key("d").array();
  EXPECT_EQ(json.end().end().take(), R"({"a":1,"b":[0.5,-0.0],"c":{},"d":[]})");
}

}  // namespace
}  // namespace polarline
