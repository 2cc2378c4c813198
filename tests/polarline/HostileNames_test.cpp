#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "platform/Utf8.h"
#include "polarline/CommandTest.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A line end with words of the command behind it, bytes that are no UTF-8, a sequence that colours, and the one byte
/// that is ESC [ to some terminals.
const std::string kName = "it's\nPASS \xFF\x1b[31m\x9B\xC2\x9B";

/// Every subcommand that tells a name, on files that are all named so.
struct HostileNames : CommandTest {
  std::string named(const std::string& ending = "") const { return set.parent.file(kName + ending); }

  HostileNames() {
    std::filesystem::rename(set.folder, named());
    set.folder = named();
    std::filesystem::copy(set.file("left_0.png"), named(".png"));
  }

  std::vector<std::vector<std::string>> uses() const {
    const std::string target = set.file("target.ini");
    return {{"check", named(), "--out", named(".out")},
            {"detect", named(".png"), "--target", target, "--out", named(".pictures")},
            {"detect", named(".png"), "--board", "dots:5x5:20", "--out", named(".pictures")},
            {"board", "--target", target, "--output", named(".svg")},
            {"import", set.file("calib.json"), "--output", named(".json")},
            {"init", named(".set"), "--left", named("/left_*.png"), "--right", named("/right_*.png"), "--board",
             "dots:9x7:20", "--calibration", set.file("calib.json"), "--force"},
            {"simulate", "ring_320", named(".simulated"), "--pairs", "1"}};
  }
  std::vector<std::vector<std::string>> refusals() const {
    return {{kName},
            {"check", named(".none")},
            {"check", named(), "--limit", kName + "<=1"},
            {"check", named(), "--set", kName + "=1"},
            {"check", "--" + kName},
            {"detect", named(".none"), "--target", set.file("target.ini")},
            {"import", named(".png")},
            {"explain", kName},
            {"report", named(), "-o", named(".html")}};
  }

  static void isForPeople(const CommandRun& run) {
    const std::string text = "\n" + run.out + run.err;
    EXPECT_TRUE(utf8::isValid(text)) << text;
    EXPECT_THAT(text, Not(HasSubstr("\x1b")));
    EXPECT_THAT(text, Not(HasSubstr("\xC2\x9B")));
    EXPECT_THAT(text, Not(HasSubstr("\nPASS \\xFF"))) << "a line of the name's own";
    isInWords(run);
  }
  static void tellsTheName(const CommandRun& run) {
    EXPECT_THAT(run.out + run.err, HasSubstr("PASS \\xFF\\x1B[31m\\x9B\\xC2\\x9B"));
  }
};

TEST_F(HostileNames, SteerNoTerminalAndMakeNoLine) {
  for (const std::vector<std::string>& use : uses()) {
    const CommandRun done = run(use);
    EXPECT_NE(done.exit_code, 2) << use[0] << "\n" << done.err;
    SCOPED_TRACE(use[0]);
    isForPeople(done);
    if (use[0] != "import") tellsTheName(done);
  }
  for (const std::vector<std::string>& use : refusals()) {
    const CommandRun refused = run(use);
    EXPECT_EQ(refused.exit_code, 2) << use[0];
    SCOPED_TRACE(use[0]);
    isForPeople(refused);
    tellsTheName(refused);
  }
}

TEST_F(HostileNames, LeaveDocumentsUtf8) {
  for (std::vector<std::string> use : uses()) {
    use.insert(use.end(), {"--json", "-"});
    const CommandRun done = run(use);
    EXPECT_TRUE(nlohmann::json::accept(done.out)) << use[0] << "\n" << done.out << done.err;
  }
  EXPECT_NE(run({"check", named(), "--json", named(".json"), "--report", named(".html")}).exit_code, 2);
  const CommandRun page = run({"report", named(".json"), "-o", named(".html")});
  EXPECT_EQ(page.exit_code, 0) << page.err;
  isForPeople(page);
  EXPECT_TRUE(utf8::isValid(set.parent.read(kName + ".html")));
}

}  // namespace
