#include "calibrations/Warnings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string_view>

#include "support/Places.h"

namespace {

using calibrations::warningCodes;

TEST(Warnings, HaveCodesOfTheirOwnInSnakeCase) {
  std::set<std::string> codes;
  for (const auto& each : warningCodes()) {
    const std::string code = each.code;
    EXPECT_TRUE(codes.insert(code).second) << code;
    EXPECT_EQ(code.find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << code;
    EXPECT_GT(std::string_view(each.meaning).size(), 20U) << code;
    EXPECT_GT(std::string_view(each.advice).size(), 20U) << code;
  }
}

TEST(Warnings, CarryTheAdviceOfTheirCode) {
  const polarline::Warning found = calibrations::warning("vertical_pair", "text");
  EXPECT_EQ(found.code, "vertical_pair");
  EXPECT_EQ(found.text, "text");
  EXPECT_EQ(found.pair, -1);
  EXPECT_NE(found.advice.find("quarter turn"), std::string::npos);
  EXPECT_THROW(calibrations::warning("vertical", "text"), std::out_of_range);
}

TEST(Warnings, StandOnThePageOfTheFormats) {
  std::ifstream page(places::inProject("docs/formats/imported_calibrations.md"));
  std::ostringstream text;
  text << page.rdbuf();
  for (const auto& each : warningCodes()) {
    EXPECT_NE(text.str().find("| `" + std::string(each.code) + "` |"), std::string::npos) << each.code;
  }
}

}  // namespace
