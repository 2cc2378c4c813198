#include "calibrations/rewrite/JsonRewrite.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

polarline::Calibration calibration() {
  polarline::Calibration calibration;
  calibration.left.fx = 500.25;
  calibration.right.fx = 501.5;
  calibration.right.k[3] = -0.125;
  calibration.rx = 0.001;
  calibration.tx = -60.0;
  return calibration;
}

TEST(JsonRewrite, ReplacesThePairAndKeepsTheRest) {
  const char* const given = R"({"note": "ours", // by hand
    "IR_L": {"Fx": 1, "made": "left"}, "IR_R": {"Fx": 2, "Rotate": {"RX": 9, "by": "us"}, "Translate": {"TX": 7}},
    "RGB": {"Fx": 3.5}})";
  const auto text = withInfraredPair(given, calibration());
  ASSERT_TRUE(text);
  const auto json = nlohmann::json::parse(*text);
  EXPECT_EQ(json["note"], "ours");
  EXPECT_EQ(json["RGB"], nlohmann::json({{"Fx", 3.5}}));
  EXPECT_EQ(json["IR_L"]["Fx"], 500.25);
  EXPECT_EQ(json["IR_L"]["made"], "left");
  EXPECT_EQ(json["IR_R"]["Fx"], 501.5);
  EXPECT_EQ(json["IR_R"]["K4"], -0.125);
  EXPECT_EQ(json["IR_R"]["Rotate"]["RX"], 0.001);
  EXPECT_EQ(json["IR_R"]["Rotate"]["by"], "us");
  EXPECT_EQ(json["IR_R"]["Translate"]["TX"], -60.0);
}

TEST(JsonRewrite, TakesNoOtherDocument) {
  for (const char* given : {"", "[1]", "{", R"({"IR_L": {}, "IR_R": {}})", R"({"IR_L": {}, "RGB": {}})",
                            R"({"IR_L": 1, "IR_R": {}, "RGB": {}})", R"({"IR_L": {}, "IR_R": [], "RGB": {}})",
                            R"({"DEPTH": {}, "IR_L": {}, "IR_R": {}, "RGB": {}})"})
    EXPECT_FALSE(withInfraredPair(given, calibration())) << given;
  EXPECT_TRUE(withInfraredPair(R"({"IR_L": {}, "IR_R": {}, "COLOR": {}})", calibration()));
}

}  // namespace
