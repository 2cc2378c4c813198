#include "diagnose/warnings/Codes.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace diagnose {
namespace {

TEST(Codes, AreWordsOfTheirOwnWithMeaningAndAdvice) {
  std::set<std::string> codes;
  for (const warnings::Code& code : warningCodes()) {
    EXPECT_TRUE(codes.insert(code.code).second) << code.code;
    EXPECT_EQ(std::string(code.code).find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << code.code;
    EXPECT_TRUE(std::string(code.meaning).ends_with('.')) << code.code;
    EXPECT_TRUE(std::string(code.advice).ends_with('.')) << code.code;
  }
}

TEST(Codes, MakeWarnings) {
  EXPECT_EQ(warning("blurred", "text", 3).advice, "Focus the camera on the distance of the board.");
  EXPECT_THROW(warning("no_such_code", ""), std::out_of_range);
}

}  // namespace
}  // namespace diagnose
