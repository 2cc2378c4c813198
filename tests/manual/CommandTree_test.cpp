#include "tools/polarline/manual/CommandTree.h"

#include <gmock/gmock.h>

#include <CLI/CLI.hpp>

namespace {

using testing::ElementsAre;

class CommandTreeOfASubcommand : public testing::Test {
 protected:
  void SetUp() override {
    app_.name("polarline");
    CLI::App* const sub = app_.add_subcommand("draw", "Draws");
    sub->add_option("SET", text_, "What is drawn");
    sub->add_option("-o,--output", text_, "Where to")->type_name("FILE")->required();
    sub->add_option("--limit", list_, "A limit")->type_name("LIMIT")->allow_extra_args(false);
    sub->add_flag("--quiet", flag_, "Nothing else");
    auto* const group = sub->add_option_group("Source", "From where");
    group->add_option("--target", text_, "A target");
    group->require_option(1);
    sub->footer("Example:\n  polarline draw");
    draw_ = manual::commandTree(app_).subcommands.at(0);
  }

  CLI::App app_;
  bool flag_ = false;
  std::string text_;
  std::vector<std::string> list_;
  manual::Command draw_;
};

TEST_F(CommandTreeOfASubcommand, TellsWhatItIs) {
  EXPECT_EQ(draw_.name, "draw");
  EXPECT_EQ(draw_.description, "Draws");
  EXPECT_EQ(draw_.usage, "polarline draw [OPTIONS] [SET]");
  EXPECT_EQ(draw_.footer, "Example:\n  polarline draw");
}

TEST_F(CommandTreeOfASubcommand, KeepsPositionalsApartFromOptions) {
  ASSERT_EQ(draw_.positionals.size(), 1U);
  EXPECT_THAT(draw_.positionals[0].names, ElementsAre("SET"));
  EXPECT_FALSE(draw_.positionals[0].is_repeatable);
}

TEST_F(CommandTreeOfASubcommand, TellsOptionsAsTheHelpDoes) {
  std::vector<std::string> heads;
  for (const manual::Option& option : draw_.options()) heads.push_back(option.head);
  EXPECT_THAT(heads,
              ElementsAre("-h, --help", "-o, --output FILE REQUIRED", "--limit LIMIT ...", "--quiet", "--target TEXT"));
}

TEST_F(CommandTreeOfASubcommand, TellsWhichOptionsHaveAValueAndWhichMayComeAgain) {
  std::vector<std::string> values;
  std::vector<bool> repeatable;
  for (const manual::Option& option : draw_.options()) {
    values.push_back(option.value);
    repeatable.push_back(option.is_repeatable);
  }
  EXPECT_THAT(values, ElementsAre("", "FILE", "LIMIT", "", "TEXT"));
  EXPECT_THAT(repeatable, ElementsAre(false, false, true, false, false));
}

TEST_F(CommandTreeOfASubcommand, HasItsGroupOfOptionsUnderAHeadingWithTheCondition) {
  ASSERT_EQ(draw_.groups.size(), 2U);
  EXPECT_EQ(draw_.groups[1].heading, "Source");
  EXPECT_THAT(draw_.groups[1].description,
              testing::AllOf(testing::HasSubstr("From where"), testing::HasSubstr("Exactly 1")));
}

}  // namespace
