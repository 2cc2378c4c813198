#include "polarline/explain.h"

#include "CommandTest.h"

namespace {

using ::testing::HasSubstr;

TEST(ExplainCommand, KnowsEveryCodeAndWord) {
  for (const char* code : {"-9", "too_few_shared", "exit 3", "picture_size", "-13", "12", "vertical_pair"}) {
    const CommandRun run({"explain", code});
    EXPECT_EQ(run.exit_code, 0) << code << run.err;
    const auto explained = polarline::explain(code);
    ASSERT_TRUE(explained) << code;
    EXPECT_THAT(run.out, HasSubstr(explained->meaning));
    EXPECT_THAT(run.out, HasSubstr("What to do: " + explained->advice));
  }
}

TEST(ExplainCommand, ShowsAllThatABareNumberMayMean) {
  for (const char* code : {"2", "130"}) EXPECT_THAT(CommandRun({"explain", code}).out, HasSubstr("exit ")) << code;
  const CommandRun run({"explain", "3"});
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_THAT(run.out, HasSubstr("exit 3 (no_figure)"));
  EXPECT_THAT(run.out, HasSubstr("3 (bad_reference_point)"));
}

TEST(ExplainCommand, TakesTheWayToAFigure) {
  const CommandRun figure({"explain", "dy_means"});
  for (const char* way : {"summary.dy_means.mean", "|summary.refined.dy_means.max|", "pairs[3].figures.dy_means"}) {
    const CommandRun run({"explain", way});
    EXPECT_EQ(run.exit_code, 0) << run.err;
    EXPECT_EQ(run.out, figure.out) << way;
  }
  EXPECT_THAT(CommandRun({"explain", "summary.dy_mean.mean"}).err, HasSubstr("did you mean dy_means"));
}

TEST(ExplainCommand, ListsAllWithoutACode) {
  const CommandRun run({"explain"});
  EXPECT_EQ(run.exit_code, 0);
  for (const polarline::Explanation& each : polarline::explanations()) EXPECT_THAT(run.out, HasSubstr(each.meaning));
}

TEST(ExplainCommand, WritesJson) {
  const CommandRun run({"explain", "exit 3", "--json", "-"});
  const auto json = DocumentCheck::of("explain").parsed(run.out);
  EXPECT_EQ(json["schema"], "polarline-explain/1");
  ASSERT_EQ(json["explanations"].size(), 1U);
  EXPECT_EQ(json["explanations"][0]["code"], "exit 3");
  const CommandRun figure({"explain", "dy_means", "--json", "-"});
  EXPECT_EQ(DocumentCheck::of("explain").parsed(figure.out)["explanations"][0]["unit"], "pixels");
  DocumentCheck::of("explain").parsed(CommandRun({"explain", "--json", "-"}).out);
  EXPECT_EQ(CommandRun({"explain", "exit 3", "--quiet"}).out, "");
}

TEST(ExplainCommand, IsOfferedForAMisspeltWord) {
  const CommandRun run({"explan"});
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.err, HasSubstr("'explan': is no subcommand of polarline; did you mean explain?"));
}

TEST(ExplainCommand, SaysWhereToLookForAnythingElse) {
  const CommandRun run({"explain", "nonsense"});
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.err, HasSubstr("'nonsense': no status, warning, exit code or figure is called so"));
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(CommandRun({"explain", "board_mismach"}).err, HasSubstr("did you mean board_mismatch"));
  EXPECT_THAT(CommandRun({"explain", "dy_mean"}).err, HasSubstr("did you mean dy_means"));
}

}  // namespace
