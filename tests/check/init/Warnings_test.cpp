#include "check/init/Warnings.h"

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(Warnings, EachCodeIsAWordOfItsOwnWithMeaningAndAdvice) {
  std::set<std::string> codes;
  for (const warnings::Code& code : init::warningCodes()) {
    EXPECT_TRUE(codes.insert(code.code).second) << code.code;
    EXPECT_EQ(std::string(code.code).find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << code.code;
    EXPECT_TRUE(std::string(code.meaning).ends_with('.')) << code.code;
    EXPECT_TRUE(std::string(code.advice).ends_with('.')) << code.code;
  }
}

TEST(Warnings, AWarningHasTheAdviceOfItsCode) {
  const polarline::Warning warning = init::warning("dots_small", "text", 0);
  EXPECT_EQ(warning.code, "dots_small");
  EXPECT_EQ(warning.text, "text");
  EXPECT_EQ(warning.pair, 0);
  EXPECT_EQ(warning.advice, "Go nearer, use a board with larger dots, or a camera with more pixels.");
  EXPECT_THROW(init::warning("no_such_code", ""), std::out_of_range);
}

TEST(Warnings, MayBeThoseOfACheckToo) { EXPECT_FALSE(init::warning("sides_exchanged", "text", 0).advice.empty()); }

}  // namespace
