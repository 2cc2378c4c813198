#include "polarline/set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/Files.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"
#include "support/Unprivileged.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

/// A folder whose files have something in them, not more.
struct SetFolder : ::testing::Test {
  TempFolder folder;
  SetFolder() {
    for (const char* name : {"polar.txt", "target.ini", "calib.json", "list.txt"}) folder.write(name, "x");
  }
  Set named() const {
    Set set;
    set.folder = folder.path().string();
    return set;
  }
  std::string refusal(const Set& set) const {
    try {
      openSet(set);
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }
};

using SetFiles = SetFolder;

TEST_F(SetFiles, AreFoundByTheirNames) {
  folder.write("board_gt.txt", "x");
  folder.write("limits.txt", "x");
  folder.write("rectified.txt", "x");
  const Set set = openSet(named());
  EXPECT_EQ(set.polar, folder.file("polar.txt"));
  EXPECT_EQ(set.target, folder.file("target.ini"));
  EXPECT_EQ(set.calibration, folder.file("calib.json"));
  EXPECT_EQ(set.list, folder.file("list.txt"));
  EXPECT_EQ(set.board, folder.file("board_gt.txt"));
  EXPECT_EQ(set.limits, folder.file("limits.txt"));
  EXPECT_EQ(set.rectified, folder.file("rectified.txt"));
}

TEST_F(SetFiles, ThatNeedNotBeThereAreEmpty) {
  const Set set = openSet(named());
  EXPECT_EQ(set.board, "");
  EXPECT_EQ(set.limits, "");
  EXPECT_EQ(set.rectified, "");
}

TEST_F(SetFiles, CanBeNamedOneByOne) {
  const std::string other = folder.write("other one.txt", "y");
  Set wanted = named();
  wanted.polar = other;
  EXPECT_EQ(openSet(wanted).polar, other);
  Set all;
  all.polar = all.target = all.calibration = all.list = other;
  EXPECT_EQ(openSet(all).list, other);
  EXPECT_EQ(openSet(all).board, "");
}

TEST_F(SetFiles, OfEachFormAreTaken) {
  std::filesystem::remove(folder.file("target.ini"));
  std::filesystem::remove(folder.file("calib.json"));
  folder.write("calib.bin", "x");
  for (const char* name : {"target.xml", "target.yaml", "target.yml", "target.json"}) {  // From the last to the first.
    folder.write(name, "x");
    EXPECT_EQ(openSet(named()).target, folder.file(name));
  }
  EXPECT_EQ(openSet(named()).calibration, folder.file("calib.bin"));
}

TEST_F(SetFiles, OfRectifiedPairsNeedNoCalibration) {
  std::filesystem::remove(folder.file("calib.json"));
  EXPECT_THAT(refusal(named()), HasSubstr("has no calibration (calib.json, calib.bin)"));
  folder.write("rectified.txt", "x");
  EXPECT_EQ(openSet(named()).calibration, "");
}

TEST_F(SetFiles, AreRefusedInTheirOwnWords) {
  for (const char* name : {"polar.txt", "target.ini", "calib.json", "list.txt"}) {
    const std::string path = folder.file(name);
    folder.write(name, "");
    EXPECT_THAT(refusal(named()), HasSubstr(path + ": is empty"));
    std::filesystem::remove(path);
    EXPECT_THAT(refusal(named()), HasSubstr("has no ")) << name;
    EXPECT_THAT(refusal(named()), HasSubstr(name));
    std::filesystem::create_directory(path);
    EXPECT_THAT(refusal(named()), HasSubstr(path + ": is a folder; a file was wanted"));
    std::filesystem::remove(path);
    folder.write(name, "x");
  }
  for (const char* name : {"board_gt.txt", "limits.txt", "rectified.txt"}) {
    folder.write(name, "");
    EXPECT_THAT(refusal(named()), HasSubstr(folder.file(name) + ": is empty"));
    std::filesystem::remove(folder.file(name));
  }
  Set missing = named();
  missing.limits = folder.file("none.txt");
  EXPECT_THAT(refusal(missing), HasSubstr(missing.limits + ": there is no such file"));
}

TEST_F(SetFiles, ThatMayNotBeReadAreTold) {
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  std::filesystem::permissions(folder.file("target.ini"), std::filesystem::perms::none);
  const Unprivileged nobody;
  EXPECT_THAT(refusal(named()), HasSubstr(folder.file("target.ini") + ": Permission denied"));
}

TEST_F(SetFiles, WantAFolder) {
  Set set;
  set.folder = folder.file("none");
  EXPECT_THAT(refusal(set), HasSubstr("none: there is no such folder"));
  set.folder = folder.file("list.txt");
  EXPECT_THAT(refusal(set), HasSubstr("list.txt: is no folder"));
}

struct SetList : ::testing::Test {
  TempFolder folder;
  SetList() {
    for (const char* name : {"l0.png", "r0.png", "l1.png", "r1.png"}) folder.write(name, "x");
  }
  std::string refusal(const std::string& content) const {
    try {
      listedPairs(folder.write("list.txt", content));
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }
};

TEST_F(SetList, HasAPairALine) {
  const auto pairs = listedPairs(folder.write("list.txt", "#L R\nl0.png r0.png\nl1.png\tr1.png"));
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_EQ(pairs[0].line, 2U);
  EXPECT_EQ(pairs[1].line, 3U);
  EXPECT_EQ(pairs[1].left, "l1.png");
  EXPECT_EQ(pairs[1].right, "r1.png");
  EXPECT_EQ(files::nativePath(pairs[1].folder + pairs[1].left), folder.file("l1.png"));
}

TEST_F(SetList, IsRefusedWithTheLine) {
  const std::string list = folder.file("list.txt");
  EXPECT_THAT(refusal("l0.png r0.png\n"), HasSubstr(list + ", line 1: no header; '#L R' was wanted"));
  EXPECT_THAT(refusal("#L\nl0.png\n"), HasSubstr(list + ": line 1: names 1 cameras; 2 were wanted (#L R)"));
  EXPECT_THAT(refusal("#L R M\nl0.png r0.png l1.png\n"), HasSubstr("names 3 cameras"));
  EXPECT_THAT(refusal("#L R\n"), HasSubstr("lists no pair"));
  EXPECT_THAT(refusal("#L R\nl0.png r0.png\nl1.png\n"), HasSubstr(list + ", line 3: two file names were wanted"));
  EXPECT_THAT(refusal("#L R\nl0.png r0.png\n\n"), HasSubstr(list + ", line 3: two file names were wanted"));
  EXPECT_THAT(refusal("#L R\nl0.png r0.png\nl1.png none.png\nl0.png r0.png\n"),
              HasSubstr(list + ", line 3: there is no picture none.png"));
}

TEST_F(SetFiles, AreAllThatACheckReads) {
  folder.write("list.txt", "#L R\na.png b.png\n");
  for (const char* name : {"a.png", "b.png", "limits.txt"}) folder.write(name, "x");
  std::vector<std::string> names;
  for (const std::string& path : filesOf(named())) names.push_back(std::filesystem::path(path).filename().string());
  EXPECT_THAT(names, ::testing::UnorderedElementsAre("polar.txt", "target.ini", "calib.json", "list.txt", "limits.txt",
                                                     "a.png", "b.png"));
}

}  // namespace
}  // namespace polarline
