#include "tools/polarline/manual/ManPage.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;

struct Shown {
  const char* text;
  const char* in_roff;
};

class ManPageText : public testing::TestWithParam<Shown> {};

TEST_P(ManPageText, StandsForItself) { EXPECT_EQ(manual::roff(GetParam().text), GetParam().in_roff); }

INSTANTIATE_TEST_SUITE_P(Texts, ManPageText,
                         testing::Values(Shown{"plain", "plain"}, Shown{"--limit", "\\-\\-limit"},
                                         Shown{".ini", "\\&.ini"}, Shown{"a.b", "a.b"}, Shown{"a\n.b", "a\n\\&.b"},
                                         Shown{"it's", "it\\(aqs"}, Shown{"'x'", "\\&\\(aqx\\(aq"},
                                         Shown{"a\\b", "a\\(rsb"}, Shown{"\"x\"", "\\(dqx\\(dq"}));

TEST(ManPage, OfASubcommandHasAllItsParts) {
  manual::Command command;
  command.name = "draw";
  command.description = "Draws";
  command.footer = "Example:\n  polarline draw -o x.svg";
  command.groups = {{"Options", "", {{{"--quiet"}, "--quiet", "Nothing else", "", {}, false}}}};
  const std::string page = manual::subcommandPage(command, "1.2.3");
  EXPECT_THAT(page, testing::StartsWith(".TH \"polarline\\-draw\" 1 \"\" \"polarline 1.2.3\""));
  EXPECT_THAT(page, HasSubstr(".SH NAME\npolarline\\-draw \\- Draws\n"));
  EXPECT_THAT(page, HasSubstr(".TP\n\\fB\\-\\-quiet\\fR\nNothing else\n"));
  EXPECT_THAT(page, HasSubstr(".SH EXAMPLE\n.nf\n  polarline draw \\-o x.svg\n"));
  EXPECT_THAT(page, HasSubstr(".SH EXIT STATUS\n.TP\n\\fB0\\fR\n"));
  EXPECT_THAT(page, Not(HasSubstr(".SH ARGUMENTS")));
}

TEST(ManPage, OfTheCommandRefersToEachSubcommand) {
  manual::Command polarline;
  polarline.name = "polarline";
  polarline.subcommands.resize(2);
  polarline.subcommands[0].name = "draw";
  polarline.subcommands[1].name = "check";
  EXPECT_THAT(manual::mainPage(polarline, "1.2.3"),
              HasSubstr("\\fBpolarline\\-draw\\fR(1),\n\\fBpolarline\\-check\\fR(1)\n"));
}

TEST(ManPage, OfTheCommandHasTheExampleAndWhatStandsBelowIt) {
  manual::Command polarline;
  polarline.name = "polarline";
  polarline.footer = "Example:\n  polarline draw\n\nThe guide lies there.";
  EXPECT_THAT(manual::mainPage(polarline, "1.2.3"),
              HasSubstr(".SH EXAMPLE\n.nf\n  polarline draw\n\nThe guide lies there.\n.fi\n.SH EXIT STATUS\n"));
}

}  // namespace
