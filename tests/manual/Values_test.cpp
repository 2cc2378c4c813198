#include "tools/polarline/manual/Values.h"

#include <gmock/gmock.h>

#include <CLI/CLI.hpp>

#include "polarline/init.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

manual::Values valuesOfType(const std::string& type) {
  CLI::App app;
  std::string text;
  return manual::valuesOf(*app.add_option("--option", text)->type_name(type));
}

TEST(Values, ArePathsWhereTheNameTellsSo) {
  EXPECT_TRUE(valuesOfType("FILE").paths);
  EXPECT_TRUE(valuesOfType("FOLDER").paths);
  EXPECT_FALSE(valuesOfType("N").paths);
  EXPECT_FALSE(valuesOfType("TEXT").paths);
}

TEST(Values, AreTheWordsOfAChoice) {
  CLI::App app;
  std::string text;
  const CLI::Option* const option = app.add_option("--paper", text)->check(CLI::IsMember({"A4", "A3"}));
  EXPECT_THAT(manual::valuesOf(*option).words, ElementsAre("A4", "A3"));
  EXPECT_EQ(manual::valueName(*option), "TEXT");
}

TEST(Values, AreFiguresForALimitToBeWrittenOn) {
  const manual::Values values = valuesOfType("LIMIT");
  EXPECT_THAT(values.words, Contains("dy_means"));
  EXPECT_TRUE(values.is_begun);
}

TEST(Values, AreCodesThatAShellTakesAsTheyAre) {
  const std::vector<std::string> words = valuesOfType("CODE").words;
  EXPECT_THAT(words, Contains("too_few_shared"));
  EXPECT_THAT(words, Not(Contains("-9")));
  EXPECT_THAT(words, Not(Contains("exit 3")));
}

TEST(Values, AreTheNamesOfClosedLists) {
  EXPECT_THAT(valuesOfType("FORMAT").words, testing::IsSupersetOf({"opencv", "ros", "kalibr", "euroc", "polarline"}));
  EXPECT_THAT(valuesOfType("MODEL").words, ElementsAre("brown", "fisheye"));
  for (const std::string& how : valuesOfType("HOW").words) EXPECT_NO_THROW(polarline::pairByOf(how)) << how;
  EXPECT_EQ(valuesOfType("HOW").words.size(), 4U);
}

TEST(Values, AreBeginningsWhereMoreHasToFollow) {
  const manual::Values keys = valuesOfType("KEY=VALUE");
  EXPECT_TRUE(keys.is_begun);
  EXPECT_THAT(keys.words, Contains("dy_bias_divid="));
  const manual::Values boards = valuesOfType("BOARD");
  EXPECT_TRUE(boards.is_begun);
  EXPECT_THAT(boards.words, ElementsAre("rings-small:", "rings-big:", "rings-mixed:", "dots:"));
}

TEST(Values, ArePathsForAPositionalOfSuchAType) {
  CLI::App app;
  std::string text;
  EXPECT_TRUE(manual::valuesOf(*app.add_option("image", text)->type_name("IMAGE")).paths);
  EXPECT_TRUE(manual::valuesOf(*app.add_option("SET", text)).paths);
  EXPECT_FALSE(manual::valuesOf(*app.add_option("other", text)).paths);
}

TEST(Values, ArePresetsAndPathsForAScene) {
  EXPECT_THAT(valuesOfType("SCENE").words, Contains("ring_320"));
  EXPECT_TRUE(valuesOfType("SCENE").paths);
}

TEST(Values, AreNoneForAFlag) {
  CLI::App app;
  const manual::Values values = manual::valuesOf(*app.add_flag("--quiet"));
  EXPECT_FALSE(values.paths);
  EXPECT_THAT(values.words, IsEmpty());
}

}  // namespace
