#include <gmock/gmock.h>

#include "tools/polarline/manual/Completions.h"

namespace {

using testing::HasSubstr;

/// What the script does with its cases is tried by bash itself, in tests/package/check_bash_completion.
TEST(Bash, HasACaseForEachPlaceOfAValue) {
  manual::Command polarline;
  polarline.subcommands.resize(1);
  manual::Command& draw = polarline.subcommands[0];
  draw.name = "draw";
  draw.groups = {{"Options",
                  "",
                  {{{"-o", "--output"}, "", "", "FILE", {true, {}, false}, false},
                   {{"--paper"}, "", "", "TEXT", {false, {"A4", "A3"}, false}, false}}}};
  draw.positionals = {{{"SET"}, "", "", "TEXT", {true, {}, false}, false},
                      {{"MORE"}, "", "", "TEXT", {false, {"x"}, false}, true}};
  const std::string script = manual::bashCompletion(polarline);
  EXPECT_THAT(script, HasSubstr("'draw -o'|'draw --output') _polarline_paths; return ;;"));
  EXPECT_THAT(script, HasSubstr("'draw --paper') _polarline_words 'A4 A3'; return ;;"));
  EXPECT_THAT(script, HasSubstr("draw) _polarline_words '-o --output --paper' ;;"));
  EXPECT_THAT(script, HasSubstr("'draw 0') _polarline_paths; ;;"));
  EXPECT_THAT(script, HasSubstr("'draw '*) _polarline_words 'x'; ;;"));
}

}  // namespace
