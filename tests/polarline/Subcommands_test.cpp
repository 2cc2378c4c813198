#include <regex>

#include "CommandTest.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// What holds for every subcommand, and the documents of those besides check.
struct Subcommands : CommandTest {
  Subcommands() { options.folder = set.parent.path().string(); }

  static const std::vector<std::string>& names() {
    static const std::vector<std::string> all = [] {
      const std::string help = CommandRun({"--help"}).out;
      std::vector<std::string> found;
      const std::regex line("\n  ([a-z]+) ");
      const std::size_t begin = help.find("Subcommands:");
      const std::string listed = help.substr(begin, help.find("Example:") - begin);
      for (std::sregex_iterator each(listed.begin(), listed.end(), line), end; each != end; ++each)
        found.push_back((*each)[1]);
      return found;
    }();
    return all;
  }
  /// The line below "Example:" in the help.
  std::string example(const std::string& name) const {
    const std::string help = run({name, "--help"}).out;
    const std::size_t at = help.find("\n  polarline ", help.find("Example:"));
    return at == std::string::npos ? "" : help.substr(at + 3, help.find('\n', at + 1) - at - 3);
  }
  /// What the examples name.
  void layOut() const {
    for (const char* name : {"my_set", "pictures"}) fs::copy(set.folder, set.parent.file(name));
    fs::create_directories(set.parent.file("store"));
    set.parent.write("store/polarline-store.json", "{}");
    for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png", "calib.json"})
      fs::copy(set.file(name), set.parent.file(name));
    set.parent.write("sets.txt", "my_set\tserial=A0042\tstation=3\n");
    set.parent.write("camchain.yaml",
                     "cam0:\n  camera_model: pinhole\n  intrinsics: [500, 500, 320, 240]\n"
                     "  distortion_model: radtan\n  distortion_coeffs: [0, 0, 0, 0]\n  resolution: [640, 480]\n"
                     "cam1:\n  camera_model: pinhole\n  intrinsics: [500, 500, 320, 240]\n"
                     "  distortion_model: radtan\n  distortion_coeffs: [0, 0, 0, 0]\n  resolution: [640, 480]\n"
                     "  T_cn_cnm1: [[1, 0, 0, -0.06], [0, 1, 0, 0], [0, 0, 1, 0], [0, 0, 0, 1]]\n");
  }
  int shell(const std::string& line) const {
    const std::string command = "cd '" + set.parent.path().string() + "' && polarline() { '" +
                                InstalledCommand::path() + "' \"$@\"; } && " + line + " >out.txt 2>err.txt";
    const int status =
        std::system(("bash -c \"" + std::regex_replace(command, std::regex("[\"$]"), "\\$&") + "\"").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

TEST_F(Subcommands, RefuseValuesThatAreEmpty) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"check", set.folder.string(), "--out=", "--quiet"},
        {"check", set.folder.string(), "--out", ""},
        {"import", set.file("calib.json"), "-o", ""}}) {
    const CommandRun run = this->run(arguments);
    EXPECT_EQ(run.exit_code, 2) << run.err;
    EXPECT_THAT(run.err, ::testing::AnyOf(::testing::HasSubstr("has no value"), ::testing::HasSubstr("is empty")));
  }
}

TEST_F(Subcommands, RunTheExamplesOfTheirHelp) {
  ASSERT_GE(names().size(), 7U);
  layOut();
  for (const char* document : {"before.json", "after.json"})
    EXPECT_EQ(check({"--json", document, "--quiet"}).exit_code, 0);
  for (const std::string& name : names()) {
    const std::string line = example(name);
    ASSERT_THAT(line, HasSubstr("polarline " + name + " ")) << run({name, "--help"}).out;
    EXPECT_EQ(shell(line), 0) << line << "\n" << set.parent.read("err.txt");
    EXPECT_EQ(set.parent.read("err.txt"), "") << line;
  }
  const std::string all = run({"--help"}).out;
  for (const char* line : {"polarline simulate ring_320 try_it", "polarline check try_it"}) {
    EXPECT_THAT(all, HasSubstr(std::string("\n  ") + line + "\n"));
    EXPECT_EQ(shell(line), 0) << line << "\n" << set.parent.read("err.txt");
  }
  for (const char* made : {"myset/polar.txt", "calib.json", "result.json", "seen/left_0_overlay.png", "board.pdf",
                           "simulated/left_0.png", "report.html", "results.sqlite"})
    EXPECT_TRUE(set.parent.has(made)) << made;
}

TEST_F(Subcommands, KeepTheirLinesAsShortAsTheTerminalIsWide) {
  layOut();
  fs::remove(set.parent.file("my_set/target.json"));
  for (const std::size_t columns : {40U, 80U}) {
    options.columns = static_cast<int>(columns);
    for (const std::vector<std::string>& line :
         {std::vector<std::string>{"explain"},
          {"detect", "left_0.png", "--target", "my_set/target.ini"},
          {"import", "calib.json"},
          {"import", "camchain.yaml"},
          {"simulate", "--list"},
          {"board", "--board", "dots:9x7:10", "-o", "b.svg"},
          {"init", "made", "--force", "--left", "left_*.png", "--right", "right_*.png", "--board", "dots:9x7:20",
           "--calibration", "calib.json"}}) {
      const CommandRun run = this->run(line);
      EXPECT_GT(run.out.size(), 20U) << line.front();
      // A path or a command to copy stays whole.
      for (std::size_t begin = 0; begin < run.out.size();) {
        const std::size_t end = std::min(run.out.find('\r', begin), run.out.size());
        const std::string text = run.out.substr(begin, end - begin);
        const std::size_t first = text.find_first_not_of(' ');
        const bool has_blank = first != std::string::npos && text.find(' ', first) != std::string::npos;
        if (has_blank && text.find('\x1b') == std::string::npos) {
          EXPECT_LE(text.size(), columns) << text;
        }
        begin = end + 2;
      }
    }
    for (const std::string& name : names()) {
      EXPECT_LE(run({name, "--help"}).longestLine(), columns) << name;
    }
    EXPECT_LE(run({"--help"}).longestLine(), columns);
  }
}

TEST_F(Subcommands, KeepTheirLinesWholeWhereThereIsNoTerminal) {
  EXPECT_THAT(run({"explain", "dy_means"}).out, HasSubstr("'summary.dy_means.mean<=VALUE' the mean over the pairs.\n"));
}

TEST_F(Subcommands, WriteDocumentsOfTheirSchemas) {
  layOut();
  const auto valid = [&](const char* schema, std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--json", "-"});
    const CommandRun run = this->run(arguments);
    EXPECT_EQ(run.exit_code, 0) << run.err;
    const auto json = DocumentCheck::of(schema).parsed(run.out);
    EXPECT_EQ(json["schema"], std::string("polarline-") + schema + "/1");
  };
  valid("init", {"init", "made", "--left", "left_*.png", "--right", "right_*.png", "--board", "dots:9x7:20",
                 "--calibration", "calib.json"});
  valid("import", {"import", "calib.json"});
  valid("import", {"import", "camchain.yaml", "--scale", "1000"});
  valid("board", {"board", "--board", "rings-big:35x37:20", "-o", "b.svg"});
  valid("simulate", {"simulate", "ring_320", "simulated", "--pairs", "1"});
  valid("presets", {"simulate", "--list"});
  valid("explain", {"explain"});
  valid("batch-outcome", {"batch", "sets.txt", "--store", "store"});
  valid("merge", {"merge", "store", "-o", "r.sqlite"});
  valid("detect", {"detect", "left_0.png", "--target", "my_set/target.ini"});
}

TEST_F(Subcommands, DetectTakesABoardInWords) {
  const CommandRun run = this->run({"detect", set.file("left_0.png"), "--board", "dots:9x7:20"});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("63 numbered of 63 dots"));
}

TEST_F(Subcommands, DetectNamesThePictureOfTheEllipsesWhereItMadeOne) {
  set.blank("left_0.png");
  const auto detect = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"detect", set.file("left_0.png"), "--board", "dots:9x7:20"});
    return run(more).out;
  };
  EXPECT_THAT(detect({}), Not(HasSubstr("shows all ellipses")));
  EXPECT_THAT(detect({"--out", "seen"}), HasSubstr("the first of them shows all ellipses by class"));
}

TEST_F(Subcommands, InitTellsOfAnotherBoardThanTheDescribed) {
  const RenderedSet& rings = RenderedSet::of("ring_320");  // 17 x 15, small rings
  const auto init = [&](const char* board) {
    return run({"init", "made", "--force", "--left", rings.file("left_0.png"), "--right", rings.file("right_0.png"),
                "--board", board, "--calibration", rings.file("calib.json")})
        .out;
  };
  const std::string right = init("rings-small:17x15:17.5");
  EXPECT_THAT(right, HasSubstr("left 255 of 255 dots in 17 columns and 15 rows"));
  EXPECT_THAT(right, Not(HasSubstr("Warning")));
  EXPECT_THAT(init("rings-small:15x17:17.5"),
              HasSubstr("board_size: Both pictures show 17 columns and 15 rows of dots, "
                        "and the board is described with 15 and 17: columns and rows "
                        "are exchanged"));
  const std::string kind = init("rings-big:17x15:17.5");
  EXPECT_THAT(kind, HasSubstr("board_kind: 255 dots were found in both pictures"));
  EXPECT_THAT(kind, Not(HasSubstr("board_size")));
}

TEST_F(Subcommands, ImportSaysWhenNothingWasWritten) {
  EXPECT_THAT(run({"import", set.file("calib.json")}).out, HasSubstr("written   nothing; -o FILE writes"));
  const CommandRun written = run({"import", set.file("calib.json"), "-o", "c.json"});
  EXPECT_THAT(written.out, Not(HasSubstr("nothing")));
  EXPECT_TRUE(set.parent.has("c.json"));
}

TEST_F(Subcommands, ImportRefusesANameThatACheckDoesNotRead) {
  const CommandRun run = this->run({"import", set.file("calib.json"), "-o", "c.txt"});
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.err, HasSubstr("--output c.txt: a name that ends in .json was wanted"));
  EXPECT_FALSE(set.parent.has("c.txt"));
}

TEST_F(Subcommands, SayOfDecodersWhatTheyThemselvesWouldNot) {
  set.cut("left_0.png");
  for (const CommandRun& run :
       {check(), this->run({"detect", set.file("left_0.png"), "--target", set.file("target.ini")}),
        this->run({"init", "made", "--left", set.file("left_*.png"), "--right", set.file("right_*.png"), "--board",
                   "dots:9x7:20", "--calibration", set.file("calib.json")})}) {
    EXPECT_EQ(run.exit_code, 2);
    EXPECT_THAT(run.err, HasSubstr("left_0.png"));
    EXPECT_THAT(run.err, HasSubstr("cut off"));
    EXPECT_THAT(run.err, Not(HasSubstr("libpng")));
  }
}

TEST_F(Subcommands, ShowWarningsOfARunThatEndsBeforeItsFirstPair) {
  set.append("polar.txt", "\nf_scal: 2\n");
  set.cut("left_0.png");
  const CommandRun run = check();
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.err, HasSubstr("nothing reads the key 'f_scal'; did you mean f_scale?"));
  EXPECT_THAT(run.err, HasSubstr("left_0.png can't be decoded: it is cut off"));
}

}  // namespace
