#include "check/init/NumberingCheck.h"

#include <gtest/gtest.h>

namespace {

using init::judgeNumbering;
using polarline::Detection;

Detection right() {
  Detection detection;
  detection.found = true;
  return detection;
}

Detection nothing(const std::string& why) {
  Detection detection;
  detection.text = why;
  detection.advice = "do this";
  return detection;
}

Detection with(std::initializer_list<const char*> codes) {
  Detection detection = right();
  for (const char* code : codes) detection.warnings.push_back({code, std::string("the text of ") + code, "do that"});
  return detection;
}

TEST(NumberingCheck, SaysNothingOfRightNumbers) {
  EXPECT_TRUE(judgeNumbering(right(), with({"dots_too_small"})).empty());
}

TEST(NumberingCheck, SaysWhyABoardWasNotFound) {
  const auto warnings = judgeNumbering(nothing("no rings"), right());
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "board_not_found");
  EXPECT_EQ(warnings[0].text, "The board was not found in the left picture of the first pair: no rings");
  EXPECT_EQ(warnings[0].advice, "Do this; polarline detect shows what was seen");
  EXPECT_EQ(warnings[0].pair, 0);
}

TEST(NumberingCheck, SaysOnceWhatHoldsOfBothPictures) {
  const auto both = judgeNumbering(nothing("no rings"), nothing("no rings"));
  ASSERT_EQ(both.size(), 1U);
  EXPECT_EQ(both[0].text, "The board was not found in both pictures of the first pair: no rings");
  const auto two = judgeNumbering(nothing("no rings"), nothing("too dark"));
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[1].text, "The board was not found in the right picture of the first pair: too dark");
}

TEST(NumberingCheck, TellsTheReasonOfStrangeNumbersFirst) {
  const auto warnings = judgeNumbering(right(), with({"strange_ids", "marker_span"}));
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "marker_span");
  EXPECT_EQ(warnings[0].text, "In the right picture of the first pair the text of marker_span");
  EXPECT_EQ(warnings[0].advice, "Do that");
  EXPECT_EQ(warnings[0].pair, 0);
}

}  // namespace
