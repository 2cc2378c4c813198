#include <gmock/gmock.h>

#include "OneOption.h"
#include "tools/polarline/manual/Completions.h"

namespace {

using testing::HasSubstr;

std::string scriptFor(const manual::Option& option) { return manual::zshCompletion(withOption(option)); }

TEST(Zsh, TakesTextsAsTheyAre) {
  EXPECT_THAT(scriptFor({{"--x"}, "", "set's [a]: b", "", {}, false}), HasSubstr(R"('--x[set'\''s \[a\]\: b]')"));
}

TEST(Zsh, OffersPathsWordsAndBeginnings) {
  EXPECT_THAT(scriptFor({{"--x"}, "", "d", "FILE", {true, {}, false}, false}), HasSubstr("'--x[d]:FILE:_files'"));
  EXPECT_THAT(scriptFor({{"--x"}, "", "d", "TEXT", {false, {"a", "b"}, false}, false}),
              HasSubstr("'--x[d]:TEXT:(a b)'"));
  EXPECT_THAT(scriptFor({{"--x"}, "", "d", "L", {false, {"a"}, true}, true}),
              HasSubstr(R"('*--x[d]:L:{compadd -S "" a}')"));
}

}  // namespace
