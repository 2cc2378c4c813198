#include <sys/stat.h>

#include "CommandTest.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// What becomes of results that can't be written and of runs that are stopped: exit codes 4 and 130, nothing half.
struct CheckResults : CommandTest {
  void notWritten(const CommandRun& run, const std::string& words) const {
    EXPECT_EQ(run.exit_code, 4) << run.out << run.err;
    EXPECT_THAT(run.err, HasSubstr(words));
    isInWords(run);
    nothingHalf();
  }
  void interrupted(const CommandRun& run) const {
    EXPECT_EQ(run.exit_code, 130) << run.out << run.err;
    EXPECT_LT(run.seconds_from_signal, 5.0 * SLOWNESS);
    EXPECT_FALSE(set.parent.has("r.json"));
    EXPECT_FALSE(set.parent.has("out"));
    isInWords(run);
    nothingHalf();
  }
};

TEST_F(CheckResults, OnAFullDeviceAreTold) {
  notWritten(check({"--json", "/dev/full"}), "/dev/full: No space left on device");
  options.out = "/dev/full";
  notWritten(check({"--json", "-"}), "standard output: No space left on device");
  notWritten(check(), "standard output: No space left on device");
}

TEST_F(CheckResults, OfEverySubcommandOnAFullDeviceAreTold) {
  options.out = "/dev/full";
  notWritten(run({"explain"}), "standard output: No space left on device");
  notWritten(run({"--help"}), "standard output: No space left on device");
  notWritten(run({"--version"}), "standard output: No space left on device");
  notWritten(run({"import", set.file("calib.json")}), "standard output: No space left on device");
  notWritten(run({"board", "--board", "dots:5x5:10", "-o", set.parent.file("b.svg")}),
             "standard output: No space left on device");
}

TEST_F(CheckResults, ReplaceNoInput) {
  for (const char* input : {"calib.json", "list.txt", "left_0.png"}) {
    const std::string before = set.read(input);
    const CommandRun run = check({"--json", set.file(input)});
    EXPECT_EQ(run.exit_code, 2);
    EXPECT_THAT(run.err, HasSubstr("is an input; name another file for --json"));
    EXPECT_EQ(set.read(input), before);
  }
}

TEST_F(CheckResults, CutInTheMiddleAreNotPutInTheirPlace) {
  set.append("polar.txt", "\ndiscalsave: 1\n");
  for (const long most : {1000L, 3000L}) {
    options.most_bytes = most;
    notWritten(check({"--quiet", "--out", set.parent.file("out")}), set.parent.file("out") + ": ");
    EXPECT_FALSE(set.parent.has("out"));
  }
}

TEST_F(CheckResults, OfASimulationAreCalledByTheUsersName) {
  options.most_bytes = 1000;
  const CommandRun run = this->run({"simulate", "ring_320", set.parent.file("made")});
  notWritten(run, set.parent.file("made") + ": the files of the set could not be written");
}

TEST_F(CheckResults, OfASimulationMakeTheFoldersAbove) {
  const CommandRun made = run({"simulate", "ring_320", set.parent.file("demo/deep/ring"), "--pairs", "1", "--quiet"});
  EXPECT_EQ(made.exit_code, 0) << made.err;
  EXPECT_TRUE(set.parent.has("demo/deep/ring/list.txt"));
  EXPECT_EQ(run({"simulate", "ring_321", set.parent.file("none/ring")}).exit_code, 2);
  EXPECT_FALSE(set.parent.has("none"));
  set.parent.write("file", "");
  notWritten(run({"simulate", "ring_320", set.parent.file("file/ring")}), "file/ring: ");
}

TEST_F(CheckResults, OnStandardOutputAreWholeOrNone) {
  set.repeat(2000);
  options.seconds_to_signal = 1.0;
  const CommandRun stopped = check({"--json", "-"});
  EXPECT_EQ(stopped.exit_code, 130);
  EXPECT_EQ(stopped.out, "");
}

TEST_F(CheckResults, ThatOutgrowALimitAreTold) {
  options.most_bytes = 4096;
  notWritten(check({"--quiet", "--json", set.parent.file("r.json")}), "r.json: File too large");
  EXPECT_FALSE(set.parent.has("r.json"));
  notWritten(check({"--quiet", "--out", set.parent.file("out")}), set.parent.file("out") + ": ");
  EXPECT_FALSE(set.parent.has("out"));
}

TEST_F(CheckResults, KeepAnEarlierFileWhereTheyFail) {
  set.parent.write("r.json", "earlier");
  options.most_bytes = 4096;
  check({"--quiet", "--json", set.parent.file("r.json")});
  EXPECT_EQ(set.parent.read("r.json"), "earlier");
}

TEST_F(CheckResults, WithoutTheRightToWriteAreTold) {
  for (const fs::path& folder : {set.parent.path(), set.folder})
    fs::permissions(folder, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  options.unprivileged = true;
  notWritten(check({"--json", set.parent.file("r.json")}), "r.json: Permission denied");
  notWritten(check({"--out", set.parent.file("out")}), "out: Permission denied");
}

TEST_F(CheckResults, InPlacesThatCannotBeAreTold) {
  notWritten(check({"--json", set.parent.file("none/r.json")}), "none/r.json: No such file or directory");
  notWritten(check({"--json", set.folder.string()}), "set");
  notWritten(check({"--out", set.file("list.txt")}), "list.txt: is no folder");
  const CommandRun run = check({"--out", set.file("list.txt"), "--json", set.parent.file("r.json")});
  EXPECT_EQ(run.exit_code, 4);
  EXPECT_EQ(document()["status"]["retry"], true);
}

TEST_F(CheckResults, ForAFolderAreRefusedBeforeTheRun) {
  const CommandRun run = check({"--json", set.folder.string()});
  notWritten(run, "set: Is a directory");
  EXPECT_EQ(run.out, "");
}

TEST_F(CheckResults, OfAFullDeviceAreCalledByTheUsersName) {
  options.most_bytes = 1000;
  const CommandRun seen =
      run({"detect", set.file("left_0.png"), "--target", set.file("target.ini"), "--out", set.parent.file("seen")});
  notWritten(seen, set.parent.file("seen/left_0_overlay.png") + ": File too large");
  const CommandRun made =
      run({"init", set.parent.file("new"), "--left", set.file("left_*.png"), "--right", set.file("right_*.png"),
           "--board", "dots:9x7:20", "--calibration", set.file("calib.json"), "--copy"});
  notWritten(made, set.parent.file("new/"));
  EXPECT_THAT(made.err, HasSubstr("File too large"));
}

TEST_F(CheckResults, GoThroughLinksThatStay) {
  fs::create_directory(set.parent.file("far"));
  fs::create_symlink("far/r.json", set.parent.file("r.json"));
  fs::create_symlink("far", set.parent.file("out"));
  EXPECT_EQ(check({"--json", set.parent.file("r.json"), "--out", set.parent.file("out")}).exit_code, 0);
  EXPECT_TRUE(fs::is_symlink(set.parent.file("r.json")));
  EXPECT_TRUE(fs::is_symlink(set.parent.file("out")));
  EXPECT_EQ(document("far/r.json")["verdict"], "pass");
  EXPECT_TRUE(set.parent.has("far/align_data_0.csv"));
  fs::create_symlink("none", set.parent.file("nowhere"));
  notWritten(check({"--out", set.parent.file("nowhere")}), "nowhere: is a link that leads nowhere");
}

TEST_F(CheckResults, OfARunStoppedWhileItReadsAreNone) {
  fs::remove(set.file("left_0.png"));
  ASSERT_EQ(mkfifo(set.file("left_0.png").c_str(), 0600), 0);  // A reader waits here until somebody writes.
  options.seconds_to_signal = 0.3;
  for (const int signal : {SIGINT, SIGTERM}) {
    options.late_signal = signal;
    const CommandRun run = check({"--json", set.parent.file("r.json"), "--out", set.parent.file("out")});
    interrupted(run);
    EXPECT_THAT(run.err, HasSubstr("polarline: interrupted; nothing half was left"));
  }
}

TEST_F(CheckResults, OfARunStoppedWhileItEvaluatesAreNone) {
  set.repeat(2000);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    options.watch = [signal](const std::string& out) {
      return out.find("  1 finished") == std::string::npos ? 0 : signal;
    };
    const CommandRun run = check({"--json", set.parent.file("r.json"), "--out", set.parent.file("out")});
    interrupted(run);
    EXPECT_THAT(run.err, HasSubstr("polarline: interrupted; nothing half was left"));
  }
}

TEST_F(CheckResults, OfARunStoppedWhileItWritesAreNone) {
  ASSERT_EQ(mkfifo(set.parent.file("pipe").c_str(), 0600), 0);  // Nobody reads: the document waits for its place.
  options.seconds_to_signal = 0.3;
  for (const int signal : {SIGINT, SIGTERM}) {
    options.late_signal = signal;
    interrupted(check({"--json", set.parent.file("pipe"), "--out", set.parent.file("out")}));
  }
}

TEST_F(CheckResults, OfAPictureThatGoesAwayMayBeTriedAgain) {
  set.repeat(30);
  set.append("list.txt", "left_1.png right_1.png\n");
  options.watch = [this](const std::string& out) {
    if (out.find("  0 finished") != std::string::npos) fs::remove(set.file("left_1.png"));
    return 0;
  };
  const CommandRun run = check({"--json", set.parent.file("r.json")});
  EXPECT_EQ(run.exit_code, 3);
  EXPECT_THAT(run.out, HasSubstr("30 of 30 pairs finished"));
  const auto status = document()["status"];
  EXPECT_EQ(status["retry"], true);
  EXPECT_THAT(status["text"].get<std::string>(), HasSubstr("line 32: the picture left_1.png can't be read: No such"));
}

TEST_F(CheckResults, OfAReaderThatGoesAreNotHalf) {
  set.repeat(200);
  const std::string command = "'" + InstalledCommand::path() + "' check '" + set.folder.string() + "' --json '" +
                              set.parent.file("r.json") + "' 2>/dev/null | head -n 3 >/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0);
  const auto told = document();  // Whole, as of any run that failed.
  EXPECT_EQ(told["status"]["name"], "not_written");
  EXPECT_EQ(told["verdict"], "error");
  nothingHalf();
}

}  // namespace
