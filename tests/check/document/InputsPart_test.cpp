#include "check/document/InputsPart.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace polarline {
namespace {

nlohmann::json jsonOf(const Check& check) {
  JsonText json(JsonText::Form::kShort);
  json.object();
  writeSet(json, check);
  writeConditions(json, check);
  json.end();
  return nlohmann::json::parse(json.take());
}

TEST(InputsPart, TellsFilesSettingsAndBoard) {
  Check check;
  check.name = "set";
  check.inputs = {{"polar", "set/polar.txt", "ab"}, {"left/0", "l.png", "cd"}};
  check.settings = {{"f_scale", "0.5"}, {"Cal_ID_DIS", "[[1, 2]]"}};
  check.board.step = static_cast<double>(0.1F);
  const nlohmann::json json = jsonOf(check);
  EXPECT_EQ(json["set"]["inputs"][1]["role"], "left/0");
  EXPECT_EQ(json["settings"]["Cal_ID_DIS"][0][1], 2);
  EXPECT_EQ(json["board"]["step"], 0.1) << "as the float is written";
}

TEST(InputsPart, HasNoPoseOfPairsThatWereRectifiedElsewhere) {
  Check check;
  EXPECT_TRUE(jsonOf(check)["cameras"]["extrinsics"].is_null());
  check.cameras.extrinsics = {1, 2, 3, 4, 5, 6};
  EXPECT_EQ(jsonOf(check)["cameras"]["extrinsics"]["rz"], 3);
  EXPECT_EQ(jsonOf(check)["cameras"]["extrinsics"]["tx"], 4);
}

}  // namespace
}  // namespace polarline
