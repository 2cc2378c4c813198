#include "check/document/PairPart.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "HandMadeCheck.h"

namespace polarline {
namespace {

std::string textOf(const PairCheck& pair) {
  JsonText json(JsonText::Form::kShort);
  writePair(json, pair);
  return json.take();
}

nlohmann::json jsonOf(const PairCheck& pair) { return nlohmann::json::parse(textOf(pair)); }

TEST(PairPart, WritesFiguresInTheirOwnPrecision) {
  PairCheck pair = hand_made::pair(3, {static_cast<double>(0.1F)}, {1.0, std::numeric_limits<double>::infinity()});
  EXPECT_NE(textOf(pair).find("\"dy_means\":0.10000000149011612"), std::string::npos);
  pair.figures[0].is_single = true;
  EXPECT_NE(textOf(pair).find("\"dy_means\":0.1,"), std::string::npos);
  EXPECT_TRUE(jsonOf(pair)["figures"]["tri_dis"][1].is_null());
}

TEST(PairPart, TellsNothingOfAFigureThatThePairDoesNotOwn) {
  PairCheck pair = hand_made::pair(3, {}, {});
  pair.figures[0].is_carried = true;
  pair.figures[1].is_own = true;  // Measured, and empty: a list without an entry is no null.
  const nlohmann::json json = jsonOf(pair);
  EXPECT_TRUE(json["figures"]["dy_means"].is_null());
  EXPECT_EQ(json["figures"]["tri_dis"], nlohmann::json::array());
  EXPECT_EQ(json["carried"], nlohmann::json({"dy_means"}));
}

TEST(PairPart, SaysWhyThePairWasGivenUp) {
  EXPECT_TRUE(jsonOf(hand_made::pair(3, {0.1}, {}))["reason"].is_null());
  const nlohmann::json json = jsonOf(hand_made::givenUp(hand_made::pair(3, {0.1}, {})));
  EXPECT_EQ(json["state"], "given up");
  EXPECT_EQ(json["reason"]["code"], -6);
  EXPECT_EQ(json["reason"]["step"], "ellipses");
  EXPECT_TRUE(json["quality"].is_null());
  EXPECT_FALSE(json.contains("refined"));
}

}  // namespace
}  // namespace polarline
