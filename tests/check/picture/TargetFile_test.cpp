#include "check/picture/TargetFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "polarline/errors.h"
#include "tests/support/ConsoleCapture.h"
#include "tests/support/TempFolder.h"

namespace {

using kestrune::RingTarget;
using testing::HasSubstr;

const std::string kText = "board_type: 2\nrows: 9\ncols: 11\nstep: 10\n";

void load(const std::string& target, RingTarget& into) {
  const ConsoleCapture console;
  loadTarget(target, into);
}

std::string refusalOf(const std::string& target) {
  try {
    RingTarget into;
    load(target, into);
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "none";
}

TEST(TargetFile, TakesATextAndAFileOfAnyName) {
  const TempFolder folder;
  for (const std::string& target : {kText, folder.write("a 'b'\n\".ini", kText)}) {
    RingTarget into;
    load(target, into);
    EXPECT_EQ(into.config().rows, 9);
    EXPECT_EQ(into.config().cols, 11);
  }
}

TEST(TargetFile, RefusesWhatARunWouldNotReadAsABoard) {
  const TempFolder folder;
  EXPECT_THAT(refusalOf(""), HasSubstr("no target"));
  EXPECT_THAT(refusalOf(folder.file("none.ini")), HasSubstr("none.ini: there is no such file"));
  EXPECT_THAT(refusalOf(folder.path().string()), HasSubstr("is a folder"));
  EXPECT_THAT(refusalOf(folder.write("target.txt", kText)), HasSubstr("ends in ini, json, yml, yaml or xml"));
  EXPECT_THAT(refusalOf(folder.write("empty.ini", "")), HasSubstr("is empty"));
  EXPECT_THAT(refusalOf(folder.write("odd.ini", "board_type: 7\n")), HasSubstr("odd.ini: board_type"));
  EXPECT_THAT(refusalOf("rows: 3\n"), HasSubstr("board_type"));
  EXPECT_THAT(refusalOf(folder.write("half.json", "{")), HasSubstr("well-formed"));
  EXPECT_THAT(refusalOf(folder.write("other.json", "{\"patterns\": [{\"board_type\": 9}]}")),
              HasSubstr("board_type of 1, 2 or 3"));
}

}  // namespace
