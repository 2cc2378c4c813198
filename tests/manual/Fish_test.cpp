#include <gmock/gmock.h>

#include "OneOption.h"
#include "tools/polarline/manual/Completions.h"

namespace {

using testing::HasSubstr;

std::string scriptFor(const manual::Option& option) { return manual::fishCompletion(withOption(option)); }

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
