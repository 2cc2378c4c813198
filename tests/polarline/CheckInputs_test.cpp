#include <sys/stat.h>

#include <opencv2/imgproc.hpp>
#include <sstream>

#include "CommandTest.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// What `check` says of an input that can't be used: exit code 2, in words that name it.
struct CheckInputs : CommandTest {
  void refused(const std::string& words, const std::vector<std::string>& arguments = {}) const {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--json", set.parent.file("r.json")});
    const CommandRun run = check(all);
    EXPECT_EQ(run.exit_code, 2) << words << "\n" << run.out << run.err;
    EXPECT_THAT(run.out + run.err, HasSubstr(words));
    isInWords(run);
    nothingHalf();
    if (set.parent.has("r.json")) {
      EXPECT_EQ(document()["verdict"], "error");
    }
    fs::remove(set.parent.file("r.json"));
  }
};

const char* const kNeeded[] = {"polar.txt", "target.ini", "calib.json", "list.txt"};

TEST_F(CheckInputs, ThatAreMissingAreNamed) {
  fs::remove(set.file("target.json"));
  fs::remove(set.file("target.yml"));
  fs::remove(set.file("calib.bin"));
  for (const char* name : kNeeded) {
    const std::string content = set.read(name);
    fs::remove(set.file(name));
    refused(name);
    set.write(name, content);
  }
  set.append("list.txt", "left_0.png right_0.png\n");
  fs::remove(set.file("right_1.png"));
  refused("list.txt, line 3: there is no picture right_1.png");
}

TEST_F(CheckInputs, ThatAreEmptyAreNamed) {
  for (const char* name : {"polar.txt", "target.ini", "calib.json", "list.txt", "board_gt.txt"}) {
    const std::string content = set.read(name);
    set.write(name, std::string());
    refused(std::string(name) + ": is empty");
    set.write(name, content);
  }
  set.write("left_0.png", std::string());
  refused("line 2: the picture left_0.png can't be decoded");
}

TEST_F(CheckInputs, ThatAreFoldersAreNamed) {
  for (const char* name : kNeeded) {
    const std::string content = set.read(name);
    fs::remove(set.file(name));
    fs::create_directory(set.file(name));
    refused(std::string(name) + ": is a folder");
    fs::remove(set.file(name));
    set.write(name, content);
  }
  fs::remove(set.file("left_0.png"));
  fs::create_directory(set.file("left_0.png"));
  refused("line 2: the picture left_0.png can't be read");
}

TEST_F(CheckInputs, ThatMayNotBeReadAreNamed) {
  fs::permissions(set.parent.path(), fs::perms::all);
  fs::permissions(set.folder, fs::perms::all);
  options.unprivileged = true;
  for (const char* name : kNeeded) {
    fs::permissions(set.file(name), fs::perms::none);
    refused(std::string(name) + ": Permission denied");
    fs::permissions(set.file(name), fs::perms::owner_read | fs::perms::others_read);
  }
  fs::permissions(set.file("left_1.png"), fs::perms::none);
  refused("line 3: the picture left_1.png can't be");
  refused("See that the file is there and may be read.");
  refused("1 of 1 pair finished, then the run ended (2 are listed).");
  fs::permissions(set.folder, fs::perms::owner_all);
  refused("polar.txt: Permission denied");
}

TEST_F(CheckInputs, ThatAreCutOffAreNamed) {
  for (const char* name : {"calib.json", "left_1.png", "right_0.png"}) {
    const std::string content = set.read(name);
    set.cut(name);
    refused(name);
    set.write(name, content);
  }
  refused("calib.bin", {"--calibration", [&] {
                          set.cut("calib.bin");
                          return set.file("calib.bin");
                        }()});
  refused("target.json", {"--target", [&] {
                            set.cut("target.json");
                            return set.file("target.json");
                          }()});
}

TEST_F(CheckInputs, OfAnotherCameraAreToldOf) {
  cv::Mat small;
  cv::resize(set.picture("right_1.png"), small, cv::Size(64, 51));
  set.write("right_1.png", small);
  const CommandRun run = check();
  EXPECT_THAT(run.out + run.err, HasSubstr("left_1.png is 128 x 102, right_1.png is 64 x 51"));
  EXPECT_EQ(run.exit_code, 2);
  isInWords(run);
}

TEST_F(CheckInputs, OfAnotherSizeThanTheCalibrationsAreWarnedOf) {
  for (const char* name : {"left_0.png", "right_0.png", "left_1.png", "right_1.png"}) {
    cv::Mat large;
    cv::resize(set.picture(name), large, cv::Size(256, 204));
    set.write(name, large);
  }
  const CommandRun run = check();
  EXPECT_THAT(run.out, HasSubstr("Look whether the calibration was made for\n  pictures of this size."));
  EXPECT_THAT(run.out, HasSubstr("as if the calibration were of\n  pictures 0.5 times as large"));
  EXPECT_EQ(run.exit_code, 0) << "there are figures";
  isInWords(run);
}

TEST_F(CheckInputs, ThatAreNoTextAreToldToTheEnd) {
  const std::string bytes = {'\0', '\1', '\xFF', '\n'};
  for (const auto& [name, words] : {std::pair{"polar.txt", "has no line 'key: value'"},
                                    {"target.ini", "board_type: none that is known was found"},
                                    {"calib.json", "line 1, column 1: is no JSON"},
                                    {"list.txt", "was wanted"},
                                    {"board_gt.txt", "line 1: '\\x00"},
                                    {"board_gt.txt", "was found; three numbers x y z were wanted"}}) {
    const std::string content = set.read(name);
    set.write(name, bytes);
    refused(name);
    refused(words);
    set.write(name, content);
  }
  set.write("limits.txt", bytes);
  refused("limits.txt, line 1: holds a NUL; a text with limits was wanted");
}

TEST_F(CheckInputs, ThatBeginWithAMarkWhichCannotBeSeenNameIt) {
  for (const char* name : {"list.txt", "calib.json", "board_gt.txt"}) {
    const std::string content = set.read(name);
    set.write(name, "\xEF\xBB\xBF" + content);
    refused(name);
    refused("a byte order mark, which can't be seen, stands before the first character");
    set.write(name, content);
  }
}

TEST_F(CheckInputs, LimitsAreReadBeforeAnythingElse) {
  refused("did you mean dy_means", {"--limit", "DY_MEANS<=1"});
  refused("'polarline explain' lists all", {"--limit", "foo<=1"});
  refused("there is no statistic 'avg'; mean, sd, min or max was wanted", {"--limit", "summary.dy_means.avg<=1"});
  refused("with <=, >=, < or > for OP", {"--limit", "dy_means==1"});
  refused("--limit: the argument behind it is empty", {"--limit", ""});
  refused("did you mean dy_means", {"--limit", "dy_mean<=0.1"});
  refused("FIGURE OP VALUE was wanted", {"--limit", "dy_means"});
  set.write("limits.txt", "# ours\ntri_rms<=many\n");
  refused("limits.txt, line 2: limit 'tri_rms<=many': 'many' is not a number");
  refused("limit 'dy_means<=': nothing stands behind the sign; a decimal number such as 0.1 was wanted",
          {"--limit", "dy_means<="});
  set.write("limits.txt", "\xEF\xBB\xBFtri_rms<=1000\r\n# ours\r\n");
  EXPECT_EQ(check().exit_code, 0) << "as an editor of another system writes it";
}

TEST_F(CheckInputs, NamePlaceAndKeyWhereTheyFail) {
  const std::string polar = set.read("polar.txt");
  set.write("polar.txt", "type: 1\nPolPoint4_GT: [1,2]\n");
  refused("polar.txt, line 2: PolPoint4_GT: '[1,2]' was found; a list of three numbers such as [1,2,3]");
  set.write("polar.txt", polar);
  const std::string calibration = set.read("calib.json");
  set.write("calib.json", "{\"IR_L\": {},\n  \"IR_R\" 3}\n");
  refused("calib.json, line 2, column 10: is no JSON: ");
  set.write("calib.json", calibration);
  set.write("list.txt", "#L R\n" + set.file("left_0.png") + " right_0.png\n");
  refused(" in " + set.folder.string() +
          "; the names of a list are relative to its own folder, one from the root as well");
}

TEST_F(CheckInputs, ThatAreLongerThanAnyAreNamed) {
  const std::string padding = "\n#" + std::string(std::size_t{1} << 24U, ' ');
  for (const char* name : {"polar.txt", "target.ini", "calib.json", "board_gt.txt"}) {
    const std::string content = set.read(name);
    set.append(name, padding);
    refused(std::string(name) + ": has more than 16777216 characters, and no more are read");
    set.write(name, content);
  }
}

/// Of a text all lines but those that begin so.
std::string without(const std::string& text, const std::string& beginning) {
  std::istringstream lines(text);
  std::string kept;
  for (std::string line; std::getline(lines, line);) kept += line.starts_with(beginning) ? "" : line + "\n";
  return kept;
}

TEST_F(CheckInputs, ThatLackAKeyWhichAnEvaluationReadsNameKeyAndSwitch) {
  const std::string polar = set.read("polar.txt");
  for (const char* point : {"TriPoint1_GT", "TriPoint2_GT", "TriPoint3_GT", "TriPoint4_GT", "PolPoint1_GT",
                            "PolPoint2_GT", "PolPoint3_GT", "PolPoint4_GT"}) {
    const std::string key = point;
    set.write("polar.txt", without(polar, key) + "triangulate_dis_switch: 1\nfoursixmethod_swithch: 1\n");
    ASSERT_NE(without(polar, key), polar);
    refused("polar.txt: has no " + key + ", which " +
            (key.starts_with("Tri") ? "triangulate_dis_switch" : "foursixmethod_swithch") + " wants");
  }
}

/// As a copy that stopped leaves a text: after each line so often, and within the line behind it.
std::vector<std::string> cutOff(const std::string& text, std::size_t lines_between) {
  std::vector<std::string> cut;
  std::size_t line = 0;
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
    if (++line % lines_between != 0) continue;
    const std::string whole = text.substr(0, end + 1);
    const std::size_t next = text.find('\n', end + 1);
    if (next == std::string::npos) continue;
    cut.push_back(whole);
    cut.push_back(whole + text.substr(end + 1, (next - end) / 2));
  }
  return cut;
}

TEST_F(CheckInputs, ConfigurationsThatAreCutOffAreNeverTakenInSilence) {
  const std::string polar = set.read("polar.txt");
  std::size_t refusals = 0;
  std::size_t warnings = 0;
  for (const std::string& cut : cutOff(polar.substr(0, polar.find("oqc_switch")), 5)) {
    set.write("polar.txt", cut);
    const CommandRun run = check();
    isInWords(run);
    const bool is_warned = run.out.find("Warning: ") != std::string::npos;
    EXPECT_TRUE(run.exit_code == 2 || run.exit_code == 3 || is_warned) << cut << "\n" << run.out << run.err;
    ++(run.exit_code == 0 ? warnings : refusals);
  }
  EXPECT_GT(refusals, 0U);
  EXPECT_GT(warnings, 0U);
}

TEST_F(CheckInputs, TargetsThatAreCutOffAreNeverTakenInSilence) {
  const std::string target = set.read("target.ini");
  const std::string figures = check().out;
  for (const std::string& cut : cutOff(target, 1)) {
    set.write("target.ini", cut);
    const CommandRun run = check();
    isInWords(run);
    const bool is_warned = run.out.find("Warning: ") != std::string::npos;
    // What stands behind the last key that a big dot board has is not read.
    EXPECT_TRUE(run.exit_code == 2 || run.exit_code == 3 || is_warned || run.out == figures) << cut << "\n"
                                                                                             << run.out << run.err;
  }
}

TEST_F(CheckInputs, ListsThatAreCutOffAreNeverTakenInSilence) {
  set.write("list.txt", "#L R\nleft_0.png right_0.png\nleft_1.png right_1.png\n");
  const std::string list = set.read("list.txt");
  for (std::size_t kept = 1; kept < list.size() - 1; ++kept) {
    const bool is_whole_line = list[kept - 1] == '\n' || list[kept] == '\n';
    if (kept % 4 != 0 && !is_whole_line) continue;
    set.write("list.txt", list.substr(0, kept));
    const CommandRun run = check();
    isInWords(run);
    // A list of fewer pairs is a list; nothing in it says how many there were.
    const bool is_list_of_one = is_whole_line && kept > list.find("right_0.png");
    EXPECT_EQ(run.exit_code, is_list_of_one ? 0 : 2) << list.substr(0, kept) << "\n" << run.out << run.err;
  }
}

TEST_F(CheckInputs, ThatLackAListOfTheFrameNameIt) {
  const CopiedSet frames(MemoryRun::twoFrames());
  const std::string polar = frames.read("polar.txt");
  for (const std::string key : {"Frame_3D", "Frame_IRL", "Frame_IRR"}) {
    frames.write("polar.txt", without(polar, key));
    const CommandRun run = this->run({"check", frames.folder.string()});
    EXPECT_EQ(run.exit_code, 2) << run.out << run.err;
    EXPECT_THAT(run.out + run.err, HasSubstr("polar.txt: has no " + key + ", which frame_work wants"));
  }
}

TEST_F(CheckInputs, BoardTruthThatIsCutOffIsNamed) {
  std::istringstream lines(set.read("board_gt.txt"));
  std::string kept;
  std::string line;
  for (int k = 0; k < 40 && std::getline(lines, line); ++k) kept += line + "\n";
  set.write("board_gt.txt", kept);
  refused("board_gt.txt: has 40 positions, and dot 40 was seen, which the board has, too: it has 63 dots");
}

TEST_F(CheckInputs, SettingsThatAreReadHalfAreRefused) {
  for (const char* setting : {"type=1.5", "type=1=2", "type=2x"})
    refused(std::string("setting '") + setting + "': ", {"--set", setting});
  refused("setting 'f_scale=2x': '2x' was found; a number was wanted", {"--set", "f_scale=2x"});
  refused("setting 'evalu_model=5': '5' was found; 0 or 1 was wanted", {"--set", "evalu_model=5"});
  set.append("polar.txt", "\ntype: 1.5\n");
  EXPECT_THAT(unwrapped(check()), HasSubstr("type: '1.5' was found; a whole number was wanted"));
}

TEST_F(CheckInputs, OfTheCommandLineAreNamed) {
  refused("--pairs 1-x", {"--pairs", "1-x"});
  refused("--pairs 0-99999999999999999999: the first and the last", {"--pairs", "0-99999999999999999999"});
  refused("--pairs 1-: the first and the last", {"--pairs", "1-"});
  refused("the list has the pairs 0-1", {"--pairs", "1-2"});
  refused("pairs 1-0: the first lies behind the last; 0-1 was wanted", {"--pairs", "1-0"});
  refused("setting 'f_scale=0': '0' was found; a number above 0 was wanted", {"--set", "f_scale=0"});
  refused("setting 'TriPoint1_GT=[1,2]': '[1,2]' was found; a list of three numbers", {"--set", "TriPoint1_GT=[1,2]"});
  refused("polarline: The following argument was not expected: --limitt; did you mean --limit", {"--limitt"});
  EXPECT_EQ(run({"check", "--pairs"}).err,
            "polarline: --pairs: 1 required A-B missing; 'polarline check --help' tells more\n");
  EXPECT_EQ(run({}).exit_code, 2);
  EXPECT_EQ(run({"--foo", "check"}).exit_code, 2);
  EXPECT_THAT(run({"--foo", "check"}).err, HasSubstr("'--foo': is no option of polarline itself"));
  EXPECT_EQ(run({"--version"}).exit_code, 0);
  EXPECT_THAT(run({}).err, HasSubstr("'polarline --help' tells more"));
  EXPECT_THAT(run({"check"}).err, HasSubstr("no set was named, and no polar configuration"));
  EXPECT_EQ(run({"nonsense"}).exit_code, 2);
  const CommandRun nowhere = run({"check", set.file("none")});
  EXPECT_EQ(nowhere.exit_code, 2);
  EXPECT_THAT(nowhere.err, HasSubstr("none: there is no such folder"));
}

TEST_F(CheckInputs, OfTheWrongKindAreCalledByIt) {
  set.parent.write("t.txt", set.read("target.ini"));
  refused("t.txt: is no target by its name; one that ends in ini, json", {"--target", set.parent.file("t.txt")});
  ASSERT_EQ(mkfifo(set.parent.file("pipe").c_str(), 0600), 0);
  refused("pipe: is a pipe, which gives its content once", {"--calibration", set.parent.file("pipe")});
  set.write("list.txt", "#L R\nleft_0.png left_0.png\n");
  EXPECT_THAT(unwrapped(check()), HasSubstr("list.txt, line 2: left_0.png stands on both sides"));
}

TEST_F(CheckInputs, HaveNamesThatMakeNoLineOfTheirOwn) {
  const std::string moved = set.parent.file("s\nPASS: the limit holds.");
  fs::rename(set.folder, moved);
  set.folder = moved;
  const CommandRun run = check({"--limit", "tri_rms<=0"});
  EXPECT_EQ(run.exit_code, 1);
  EXPECT_THAT(run.out, ::testing::Not(HasSubstr("\nPASS")));
  EXPECT_THAT(run.out, HasSubstr("s\\x0APASS"));
  set.write("list.txt", std::string());
  EXPECT_THAT(check().err, ::testing::Not(HasSubstr("\nPASS")));
}

TEST_F(CheckInputs, HaveNamesOfAnyBytes) {
  for (const char* name : {"with blanks", "quo\"te's", "line\nend", "no \xFF\xC3 utf", "what?base64"}) {
    const std::string moved = set.parent.file(name);
    fs::rename(set.folder, moved);
    set.folder = moved;
    const CommandRun run = check({"--json", set.parent.file("r.json"), "--out", moved + " out"});
    EXPECT_EQ(run.exit_code, 0) << run.err;
    EXPECT_FALSE(document()["set"]["name"].get<std::string>().empty());
    EXPECT_TRUE(fs::exists(moved + " out"));
    nothingHalf();
  }
}

}  // namespace
