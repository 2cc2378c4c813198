#include "check/set/UnreadInput.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "support/TempFolder.h"

namespace polarline {
namespace {

struct UnreadInputOf : ::testing::Test {
  TempFolder folder;
};

TEST_F(UnreadInputOf, AFileThatItsFolderLacksStaysAway) {
  EXPECT_FALSE(mayComeBack(folder.file("polar.txt"), ENOENT));
  EXPECT_FALSE(mayComeBack("no_such_file_of_the_working_folder", ENOENT));
}

TEST_F(UnreadInputOf, AFolderThatIsAwayMayComeBack) {
  EXPECT_TRUE(mayComeBack(folder.file("disk/polar.txt"), ENOENT));
  EXPECT_TRUE(mayComeBack(folder.file("disk/night/polar.txt"), ENOENT));
}

TEST_F(UnreadInputOf, ALinkIsLookedForWhereItLeads) {
  std::filesystem::create_symlink("disk/polar.txt", folder.path() / "away");
  EXPECT_TRUE(mayComeBack(folder.file("away"), ENOENT));
  std::filesystem::create_directory(folder.path() / "disk");
  EXPECT_FALSE(mayComeBack(folder.file("away"), ENOENT));
  std::filesystem::create_symlink("round", folder.path() / "round");
  EXPECT_FALSE(mayComeBack(folder.file("round"), ELOOP));
}

TEST_F(UnreadInputOf, WhatASystemSaysOfADiskPassesAndARightThatIsMissingDoesNot) {
  const std::string path = folder.write("polar.txt", "type: 0\n");
  for (const int error : {EIO, ESTALE, ENOTCONN, ETIMEDOUT, EHOSTDOWN, EMFILE}) EXPECT_TRUE(mayComeBack(path, error));
  for (const int error : {EACCES, EPERM, EISDIR, ENOTDIR}) EXPECT_FALSE(mayComeBack(path, error));
}

TEST_F(UnreadInputOf, TellsAsAnyInputDoes) {
  const UnreadInput away("polar.txt", "is away", folder.file("disk/polar.txt"), ENOENT);
  EXPECT_STREQ(away.what(), "polar.txt: is away");
  EXPECT_TRUE(away.mayReturn());
}

}  // namespace
}  // namespace polarline
