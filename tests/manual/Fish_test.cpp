#include <gmock/gmock.h>

#include "tools/polarline/manual/Completions.h"

namespace {

using testing::HasSubstr;

std::string scriptFor(const manual::Option& option) {
  manual::Command polarline;
  polarline.subcommands.resize(1);
  polarline.subcommands[0].name = "draw";
  polarline.subcommands[0].groups = {{"Options", "", {option}}};
  return manual::fishCompletion(polarline);
}

TEST(Fish, TakesTextsAsTheyAre) {
  EXPECT_THAT(scriptFor({{"-x", "--xx"}, "", "set's a\\b", "", {}, false}),
              HasSubstr(R"( -s x -l xx -d 'set\'s a\\b')"));
}

TEST(Fish, OffersPathsOrWords) {
  EXPECT_THAT(scriptFor({{"--x"}, "", "d", "FILE", {true, {}, false}, false}), HasSubstr(" -l x -r -F -d 'd'"));
  EXPECT_THAT(scriptFor({{"--x"}, "", "d", "TEXT", {false, {"a", "b"}, false}, false}),
              HasSubstr(" -l x -x -a 'a b' -d 'd'"));
}

}  // namespace
