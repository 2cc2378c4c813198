#include "tools/polarline/manual/Values.h"

#include <gmock/gmock.h>

#include <CLI/CLI.hpp>

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
