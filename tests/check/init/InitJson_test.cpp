#include <gtest/gtest.h>

#include "polarline/init.h"
#include "support/DocumentCheck.h"

namespace {

TEST(InitJson, HoldsWhatWasFoundGuessedAndWarned) {
  polarline::MadeSet set;
  set.folder = "set\xff";
  set.files = {"list.txt", "polar.txt"};
  set.pairs = {{"a/l.png", "a/r.png", "../a/l.png", "../a/r.png"}};
  set.alone_right = {"a/r2.png"};
  set.picture = {640, 480};
  set.channels = 1;
  set.bits = 16;
  set.board = "dots:9x7:20";
  set.expected = 63;
  set.left = {62, 7.5};
  set.type = 1;
  set.model = "Brown, K1 to K6";
  set.calibration_format = "kalibr";
  set.baseline = 60.5;
  set.corners = {20, 24, 38, 42};
  set.guesses = {"one"};
  set.warnings = {{"some_code", "text", "advice", 0}, {"other", "t", "a", -1}};
  set.next = "polarline check set";
  const auto json = DocumentCheck::of("init").parsed(polarline::initJson(set));
  EXPECT_EQ(json["schema"], "polarline-init/1");
  EXPECT_EQ(json["folder"], "set\xef\xbf\xbd") << "bytes that are no UTF-8 are replaced";
  EXPECT_EQ(json["pairs"][0]["left"], "a/l.png");
  EXPECT_EQ(json["pairs"][0]["listed_right"], "../a/r.png");
  EXPECT_EQ(json["alone"]["right"][0], "a/r2.png");
  EXPECT_TRUE(json["alone"]["left"].empty());
  EXPECT_EQ(json["pictures"]["width"], 640);
  EXPECT_EQ(json["pictures"]["bits"], 16);
  EXPECT_EQ(json["board"]["expected"], 63);
  EXPECT_EQ(json["first_pair"]["left"]["dot_radius"], 7.5);
  EXPECT_TRUE(json["first_pair"]["right"]["dot_radius"].is_null());
  EXPECT_EQ(json["calibration"]["baseline"], 60.5);
  EXPECT_EQ(json["corners"][3], 42);
  EXPECT_EQ(json["warnings"][0]["pair"], 0);
  EXPECT_FALSE(json["warnings"][1].contains("pair"));
  EXPECT_EQ(json["next"], "polarline check set");
}

}  // namespace
