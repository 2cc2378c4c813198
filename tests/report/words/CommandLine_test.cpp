#include "report/words/CommandLine.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

struct Told {
  std::vector<std::string> words;
  const char* with_paths;
  const char* without;
};

class CommandLineOf : public ::testing::TestWithParam<Told> {};

TEST_P(CommandLineOf, IsWhatAShellTakes) {
  EXPECT_EQ(commandLine(GetParam().words, true), GetParam().with_paths);
  EXPECT_EQ(commandLine(GetParam().words, false), GetParam().without);
}

INSTANTIATE_TEST_SUITE_P(
    All, CommandLineOf,
    ::testing::Values(
        Told{{}, "", ""},
        Told{{"polarline", "check", "/secret/place/set", "--limit", "dy_means<=0.1", "--report", "../out/a b.html"},
             "polarline check /secret/place/set --limit 'dy_means<=0.1' --report '../out/a b.html'",
             "polarline check set --limit 'dy_means<=0.1' --report 'a b.html'"},
        Told{{"polarline", "check", "set/", "--json=/secret/r.json", "--limit=|tri_dis[0]|<=0.5", "-o", "x"},
             "polarline check set/ --json=/secret/r.json --limit='|tri_dis[0]|<=0.5' -o x",
             "polarline check set --json=r.json --limit='|tri_dis[0]|<=0.5' -o x"},
        Told{{"polarline", "C:\\secret\\set", "it's", "-a b"},
             "polarline 'C:\\secret\\set' 'it'\\''s' '-a b'",
             "polarline set 'it'\\''s' '-a b'"},
        Told{{"polarline", "/", "."}, "polarline / .", "polarline '' ."},
        Told{{"polarline", "report", "-o/tmp/q/l5.html", "-o=a b/c", "-ox"},
             "polarline report -o/tmp/q/l5.html '-o=a b/c' -ox",
             "polarline report -ol5.html '-o=c' -ox"},
        Told{{"polarline", "--title", "before / after", "--title=/a/b", "--title", "/a b/c d", "/x/y"},
             "polarline --title 'before / after' --title=/a/b --title '/a b/c d' /x/y",
             "polarline --title 'before / after' --title=/a/b --title '/a b/c d' y"},
        Told{{"polarline", "--set", "result_folder=/x/y", "--set=a=/x/z", "--set", "b", "c=/d"},
             "polarline --set 'result_folder=/x/y' --set='a=/x/z' --set b 'c=/d'",
             "polarline --set 'result_folder=y' --set='a=z' --set b d"}));

TEST(CommandLinePaths, AreWhatMayBeOne) {
  const std::vector<std::string> words = {"polarline", "-o/q r/l", "--json=/secret/r.json", "--title", "a / b",
                                          "--out",     "x/y"};
  const std::vector<std::string> wanted = {"/q r/l", "/secret/r.json", "x/y"};
  EXPECT_EQ(pathsOfCommand(words), wanted);
}

}  // namespace
}  // namespace polarline
