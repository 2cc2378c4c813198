#include "polarline/check.h"

#include <opencv2/imgproc.hpp>
#include <regex>

#include "CommandTest.h"
#include "support/FolderContents.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using CheckCommand = CommandTest;

TEST_F(CheckCommand, TellsPairsFiguresAndVerdict) {
  const CommandRun run = check({"--limit", "tri_rms<=9"});
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("set: board of 9 x 7 dots"));
  EXPECT_THAT(run.out, HasSubstr("pair state"));
  EXPECT_THAT(run.out, testing::ContainsRegex("\n {15}.*pixels.*\n   0 finished"));
  EXPECT_THAT(run.out, HasSubstr("2 of 2 pairs finished."));
  EXPECT_THAT(run.out, HasSubstr("Worst pair: "));
  EXPECT_THAT(run.out, HasSubstr("holds    tri_rms<=9: tri_rms is "));
  EXPECT_THAT(run.out, HasSubstr("PASS: the limit holds."));
  EXPECT_THAT(run.out, Not(HasSubstr("\x1b")));
}

TEST_F(CheckCommand, TellsHowCertainTheWorstFigureIs) {
  const CommandRun run = check();
  EXPECT_TRUE(std::regex_search(run.out, std::regex(R"(Worst pair: \d \(\w+\s+\S+ ± \S+)"))) << run.out;
}

TEST_F(CheckCommand, MarksWhatExceedsALimit) {
  const CommandRun run = check({"--limit", "tri_rms<=0"});
  EXPECT_EQ(run.exit_code, 1);
  EXPECT_TRUE(std::regex_search(run.out, std::regex(R"(0 finished +\d\.\d{4}!)"))) << run.out;
  EXPECT_THAT(run.out, HasSubstr("EXCEEDED tri_rms<=0"));
  EXPECT_THAT(run.out, HasSubstr("FAIL: the limit does not hold."));
}

TEST_F(CheckCommand, EndsWithoutAFigureWhereNoEvaluationIsOn) {
  const CommandRun frames = check({"--set", "frame_work=1", "--json", set.parent.file("r.json")});
  EXPECT_EQ(frames.exit_code, 3) << frames.out << frames.err;
  EXPECT_THAT(frames.out, HasSubstr("2 of 2 pairs finished.\n"));
  EXPECT_THAT(frames.out, HasSubstr("ERROR: no pair has a figure: frame_work is on"));
  EXPECT_EQ(document()["status"]["name"], "nothing_measured");
  EXPECT_EQ(document()["verdict"], "error");
  std::vector<std::string> off;
  for (const char* key : {"triangulate_residual_switch", "triangulate_dis_switch", "discalswitch", "dy_bias_switch",
                          "foursixmethod_swithch", "spaceRms_switch"})
    off.insert(off.end(), {"--set", std::string(key) + "=0"});
  const CommandRun none = check(off);
  EXPECT_EQ(none.exit_code, 3);
  EXPECT_THAT(unwrapped(none), HasSubstr("these switches are off: triangulate_residual_switch, "));
}

TEST_F(CheckCommand, SaysOfARectifiedPictureThatItIsOne) {
  const CommandRun run = check({"--set", "f_scale=30", "--set", "dy_bias_switch=1"});
  EXPECT_EQ(run.exit_code, 3) << run.out << run.err;
  EXPECT_THAT(unwrapped(run), HasSubstr("were found in the rectified left picture"));
  EXPECT_THAT(run.out, Not(HasSubstr("polarline detect")));
  EXPECT_THAT(run.out, HasSubstr("savepolarline"));
}

TEST_F(CheckCommand, NamesOfResidualsThatCannotBeTakenThatCauseOnly) {
  set.append("polar.txt", "\ntriangulate_residual_switch: 1\n");
  nlohmann::json calibration = nlohmann::json::parse(set.read("calib.json"));
  double& middle = calibration["IR_R"]["Cy"].get_ref<double&>();
  middle += 40.0;  // No ray of the right camera comes near that of the left one.
  set.write("calib.json", calibration.dump());
  const CommandRun run = check();
  EXPECT_EQ(run.exit_code, 3);
  EXPECT_THAT(unwrapped(run), HasSubstr("dots are in both pictures, and no residual could be taken"));
  EXPECT_THAT(unwrapped(run), Not(HasSubstr("too few dots")));
}

TEST_F(CheckCommand, SaysOfDotsBeyondTheBoardThatItHasNone) {
  for (const char* key : {"TriPoint1_ID", "PolPoint3_ID"}) {
    const CommandRun run = check({"--set", "triangulate_dis_switch=1", "--set", "foursixmethod_swithch=1", "--set",
                                  std::string(key) + "=99999"});
    EXPECT_EQ(run.exit_code, 2) << run.out << run.err;
    EXPECT_THAT(unwrapped(run), HasSubstr(std::string(key) + " is 99999; the board has the dots 0 to 62"));
  }
}

TEST_F(CheckCommand, TellsWhyEachPairWasGivenUpAlsoWhenItIsQuiet) {
  set.blank("left_0.png");
  set.blank("right_1.png");
  const CommandRun run = check({"--quiet"});
  EXPECT_EQ(run.exit_code, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("pair 0 given up: 0 dots were found in the left picture"));
  EXPECT_THAT(run.err, HasSubstr("pair 1 given up: 0 dots were found in the right picture"));
}

TEST_F(CheckCommand, SaysOfRowsThatWereTurnedAwayNoCauseButThat) {
  const CommandRun run = check({"--set", "x_y=1", "--set", "dy_bias_switch=1", "--set", "foursixmethod_swithch=0"});
  EXPECT_EQ(run.exit_code, 0) << run.out << run.err;
  EXPECT_THAT(unwrapped(run), HasSubstr("x_y is 1, and the cameras stand side by side"));
  EXPECT_THAT(unwrapped(run), HasSubstr("No causes are told: x_y turns the pictures by a quarter"));
  EXPECT_THAT(run.out, Not(HasSubstr("No cause is needed")));
}

TEST_F(CheckCommand, ShowsTheEntryThatALimitJudgesUnderItsWholeName) {
  const CommandRun run = check({"--limit", "|tri_dis[1]|<=1e9", "--limit", "|tri_dis[0]|<=0", "--json", "-"});
  const auto pair = DocumentCheck::ofCheck().parsed(run.out)["pairs"][0];
  const CommandRun table = check({"--limit", "|tri_dis[1]|<=1e9", "--limit", "|tri_dis[0]|<=0"});
  const std::string first = polarline::figureText(pair["figures"]["tri_dis"][0]);
  const std::string second = polarline::figureText(pair["figures"]["tri_dis"][1]);
  EXPECT_TRUE(std::regex_search(table.out, std::regex("state +tri_dis\\[1\\] +tri_dis\\[0\\]"))) << table.out;
  EXPECT_TRUE(std::regex_search(table.out, std::regex("0 finished +" + second + " +" + first + "! "))) << table.out;
  EXPECT_THAT(check({"--limit", "|allpoints_means|<=1e9"}).out, HasSubstr(" allpoints_means "));
}

TEST_F(CheckCommand, SaysInItsOwnWordsWhichEvaluationFailed) {
  const CommandRun crop = check({"--set", "crop=1", "--set", "cropped_cols=500", "--set", "cropped_rows=40"});
  EXPECT_EQ(crop.exit_code, 3);
  EXPECT_THAT(crop.err, HasSubstr("polarline: pair 0 (left_0.png, right_0.png): the crop (cropped_cols, cropped_rows) "
                                  "is 500 x 40 pixels, and the pictures are 128 x 102 (OpenCV says: "));
  for (const char* name : {"left_0.png", "right_0.png"}) {
    cv::Mat colour;
    cv::cvtColor(set.picture(name), colour, cv::COLOR_GRAY2BGR);
    set.write(name, colour);
  }
  const CommandRun run = check({"--set", "triangulate_residual_switch=1"});
  EXPECT_EQ(run.exit_code, 3);
  EXPECT_THAT(run.err, HasSubstr("the residuals of the triangulation (triangulate_residual_switch) can't be taken: "
                                 "left_0.png has 3 channels"));
  EXPECT_THAT(run.err, HasSubstr("Convert the pictures to grey, or set triangulate_residual_switch to 0."));
}

TEST_F(CheckCommand, SaysWhyAPairWasGivenUp) {
  set.blank("right_1.png");
  const CommandRun run = check();
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_THAT(run.out, HasSubstr("   1 given up  -6: 0 dots were found in the right picture; 6 are needed"));
  EXPECT_THAT(run.out, HasSubstr("1 pair given up with -6 (too_few_detected): Fewer than 6 dots were numbered"));
  EXPECT_THAT(run.out, HasSubstr("polarline detect"));
  EXPECT_THAT(run.out, HasSubstr("1 of 2 pairs finished."));
}

TEST_F(CheckCommand, SaysStatusAndAdviceWhereNoPairFinished) {
  set.blank("right_0.png");
  set.blank("right_1.png");
  const CommandRun run = check({"--json", set.parent.file("r.json")});
  EXPECT_EQ(run.exit_code, 3);
  EXPECT_THAT(run.out, HasSubstr("ERROR: The run ended without one finished pair."));
  EXPECT_THAT(run.out, HasSubstr("polarline detect"));
  EXPECT_EQ(document()["verdict"], "error");
  EXPECT_EQ(document()["judged"], 0);
  EXPECT_EQ(document()["status"]["code"], 8);
}

TEST_F(CheckCommand, TakesOptionsWithABlankOrAnEqualsSign) {
  const CommandRun blank = check({"--pairs", "1", "--limit", "tri_rms<=9"});
  const CommandRun equals = check({"--pairs=1-1", "--limit=tri_rms<=9"});
  EXPECT_EQ(blank.exit_code, 0);
  EXPECT_EQ(blank.out, equals.out);
  EXPECT_THAT(blank.out, HasSubstr("1 of 1 pair finished."));
}

TEST_F(CheckCommand, WritesTheDocumentToAFileOrStandardOutput) {
  const CommandRun file = check({"--json", set.parent.file("r.json")});
  EXPECT_EQ(file.exit_code, 0);
  const auto written = document();
  EXPECT_EQ(written["verdict"], "pass");
  EXPECT_EQ(written["judged"], 0) << "no limit was given";
  const CommandRun out = check({"--json", "-"});
  const auto printed = DocumentCheck::ofCheck().parsed(out.out);  // Nothing else is there.
  EXPECT_EQ(out.err, "");
  EXPECT_EQ(printed["pairs"], written["pairs"]);
  EXPECT_EQ(printed["set"]["id"], written["set"]["id"]);
}

TEST_F(CheckCommand, IsQuietOnRequest) {
  EXPECT_EQ(check({"--quiet", "--limit", "tri_rms<=9"}).err, "");
  for (const CommandRun& run : {check({"--quiet", "--limit", "tri_rms<=0", "--limit", "dy_means<=9"}),
                                check({"--json", "-", "--limit", "tri_rms<=0", "--limit", "dy_means<=9"})}) {
    EXPECT_EQ(run.exit_code, 1);
    EXPECT_THAT(run.out, Not(HasSubstr("EXCEEDED")));
    EXPECT_THAT(run.err, testing::MatchesRegex("EXCEEDED tri_rms<=0: .*\nFAIL: 1 of 2 limits do not hold.\n"));
  }
  set.cut("left_1.png");
  const CommandRun failed = check({"--quiet"});
  EXPECT_EQ(failed.exit_code, 2);
  EXPECT_EQ(failed.out, "");
  EXPECT_THAT(failed.err, HasSubstr("line 3: the picture left_1.png can't be decoded"));
}

TEST_F(CheckCommand, SetsAKeyForTheRun) {
  const CommandRun run = check({"--set", "dy_bias_divid=0.25", "--json", "-"});
  EXPECT_EQ(DocumentCheck::ofCheck().parsed(run.out)["settings"]["dy_bias_divid"], 0.25);
  EXPECT_EQ(check({"--set", "dy_bias_divi=0.25"}).exit_code, 2);
}

TEST_F(CheckCommand, ChangesNoFigureByAnyOption) {
  const auto figures = [&](const std::vector<std::string>& arguments) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--json", "-"});
    return DocumentCheck::ofCheck().parsed(check(all).out)["pairs"];
  };
  const auto wanted = figures({});
  EXPECT_EQ(figures({"--limit", "tri_rms<=0"}), wanted);
  EXPECT_EQ(figures({"--out", set.parent.file("out")}), wanted);
  EXPECT_EQ(figures({"--quiet"}), wanted);
}

TEST_F(CheckCommand, RefinesBesideTheLibrarysFiguresAndFiles) {
  const auto without = check({"--json", set.parent.file("r.json"), "--out", set.parent.file("without")});
  const auto detected = document();
  const CommandRun run = check({"--refine", "--json", set.parent.file("refined.json"), "--out", set.parent.file("with"),
                                "--limit", "refined.tri_rms<=9"});
  EXPECT_EQ(run.exit_code, 0);
  auto refined = document("refined.json");
  for (auto& pair : refined["pairs"]) {
    EXPECT_LT(pair["refined"]["figures"]["tri_rms"], pair["figures"]["tri_rms"]);
    pair.erase("refined");
  }
  EXPECT_EQ(refined["pairs"], detected["pairs"]);
  EXPECT_EQ(contentsOf(set.parent.file("with")), contentsOf(set.parent.file("without")));
  EXPECT_TRUE(std::regex_search(run.out, std::regex(R"(0 finished +\d\.\d{4}.*\n +refined +\d\.\d{4})"))) << run.out;
  EXPECT_THAT(run.out, HasSubstr("From refined centres: "));
  EXPECT_THAT(run.out, HasSubstr("holds    refined.tri_rms<=9: refined.tri_rms is "));
  EXPECT_THAT(without.out, Not(HasSubstr("refined")));
}

TEST_F(CheckCommand, RefusesALimitOnARefinedFigureThatItDoesNotMake) {
  const CommandRun run = check({"--limit", "refined.dy_means<=9"});
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.err, HasSubstr("limit 'refined.dy_means<=9'"));
  EXPECT_THAT(run.err, HasSubstr("--refine"));
}

TEST_F(CheckCommand, RunsTheExampleOfItsHelp) {
  std::filesystem::rename(set.folder, set.parent.file("my_set"));
  options.folder = set.parent.path().string();
  const CommandRun help = run({"check", "--help"});
  EXPECT_EQ(help.exit_code, 0);
  const std::size_t at = help.out.find("polarline check my_set --limit 'dy_means<=0.1' --json result.json");
  ASSERT_NE(at, std::string::npos) << help.out;
  const CommandRun example = run({"check", "my_set", "--limit", "dy_means<=0.1", "--json", "result.json"});
  EXPECT_LE(example.exit_code, 1);
  DocumentCheck::ofCheck().parsed(set.parent.read("result.json"));
}

TEST_F(CheckCommand, SaysItsFirstLineAtOnce) {
  // By its work, as a busy machine lets it wait; by the clock only that it does not wait of itself.
  constexpr double kWork = 0.15 * SLOWNESS;
  constexpr double kSeconds = 1.5 * SLOWNESS;
  double least_work = 100.0;
  double least_seconds = 100.0;
  for (int k = 0; k < 20 && (least_work >= kWork || least_seconds >= kSeconds); ++k) {
    const CommandRun run = check();
    least_work = std::min(least_work, run.first_line_work);
    least_seconds = std::min(least_seconds, run.first_line_seconds);
  }
  EXPECT_LT(least_work, kWork);
  EXPECT_LT(least_seconds, kSeconds);
}

TEST_F(CheckCommand, HoldsAsMuchMemoryForManyPairsAsForFew) {
  constexpr double kKept = SLOWNESS;  // The sanitizers keep what was freed for a while.
  const std::string json = set.parent.file("r.json");
  set.repeat(10);
  const auto few = static_cast<double>(check({"--json", json}).kilobytes);
  set.repeat(200);
  EXPECT_LT(static_cast<double>(check({"--json", json}).kilobytes), kKept * 1.1 * few);
  set.repeat(60);  // With a page the test is long.
  const CommandRun run = check({"--json", json, "--report", set.parent.file("r.html")});
  EXPECT_THAT(run.out, HasSubstr("60 of 60 pairs finished."));
  const double page = static_cast<double>(set.parent.read("r.html").size()) / 1024.0;
  EXPECT_GT(page, 1500.0);
  EXPECT_LT(static_cast<double>(run.kilobytes), kKept * (1.1 * few + 3.0 * page));
}

using CheckCommandTerminal = CommandTest;

TEST_F(CheckCommandTerminal, KeepsItsLinesAsShortAsTheTerminalIsWide) {
  set.blank("right_1.png");
  for (const int columns : {40, 80}) {
    options.columns = columns;
    const CommandRun run = check({"--limit", "tri_rms<=0", "--limit", "|tri_dis|<=100000"});
    EXPECT_EQ(run.exit_code, 1);
    EXPECT_LE(run.longestLine(), static_cast<std::size_t>(columns)) << run.out;
    EXPECT_THAT(run.out, HasSubstr("\x1b[31m"));
    EXPECT_THAT(run.out, HasSubstr("pair 1 of 2, "));
    EXPECT_THAT(run.out, HasSubstr(" s left"));
  }
}

TEST_F(CheckCommandTerminal, KeepsRefinedLinesAsShortAndInTheirColumns) {
  for (const int columns : {40, 80}) {
    options.columns = columns;
    const CommandRun run = check({"--refine", "--limit", "refined.dis_rms<=0"});
    EXPECT_EQ(run.exit_code, 1);
    EXPECT_LE(run.longestLine(), static_cast<std::size_t>(columns)) << run.out;
    const std::string plain = std::regex_replace(run.out, std::regex("\x1b\\[[0-9;]*[mK]|\r"), "");
    EXPECT_TRUE(std::regex_search(plain, std::regex(" 0 finished +\\d\\.\\d{4} .*\n +refined +\\d\\.\\d{4}!")))
        << plain;
    EXPECT_THAT(plain, HasSubstr("dis_rms"));
  }
}

TEST_F(CheckCommandTerminal, ShowsNoControlCharacterOfAName) {
  const std::string moved = set.parent.file("a\x1b]0;b\a");
  std::filesystem::rename(set.folder, moved);
  set.folder = moved;
  options.columns = 80;
  const CommandRun run = check();
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_THAT(run.out, HasSubstr("a\\x1B]0;b\\x07: board of 9 x 7 dots"));
  std::filesystem::remove(set.file("polar.txt"));
  const CommandRun failed = check();
  EXPECT_THAT(failed.out, HasSubstr("a\\x1B]0;b\\x07: has no polar configuration"));
  EXPECT_THAT(failed.out, Not(HasSubstr("\x1b]")));
}

TEST_F(CheckCommandTerminal, HasNoColoursWhereNobodyWantsThem) {
  options.columns = 80;
  for (const char* variable : {"NO_COLOR=1", "TERM=dumb"}) {
    options.environment = {"LC_ALL=C", variable};
    EXPECT_THAT(check({"--limit", "tri_rms<=0"}).out, Not(HasSubstr("\x1b[31m"))) << variable;
  }
  EXPECT_THAT(check().out, Not(HasSubstr("\x1b"))) << "a dumb terminal redraws no line";
}

}  // namespace
