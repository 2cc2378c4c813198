#include "tools/scene/SetFolder.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/TempFolder.h"
#include "tools/scene/SceneFiles.h"

namespace {

namespace fs = std::filesystem;

using scene::SetFolder;

std::size_t entries(const fs::path& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

void writeSet(SetFolder& set) {
  scene::writeFile(set.path() + "/polar.txt", "new");
  set.finish();
}

TEST(SetFolder, AppearsOnlyWhenItIsFinished) {
  const TempFolder folder;
  for (const char* name : {"set", "a name with \n and \" in it", "slash/", "\xff\xfe"}) {
    SetFolder set(folder.file(name), "", false);
    EXPECT_FALSE(folder.has(name));
    writeSet(set);
    EXPECT_EQ(folder.read(std::string(name) + "/polar.txt"), "new");
  }
  EXPECT_EQ(entries(folder.path()), 4U);
}

TEST(SetFolder, AnEmptyFolderIsTaken) {
  const TempFolder folder;
  fs::create_directory(folder.file("set"));
  SetFolder set(folder.file("set"), "", false);
  writeSet(set);
  EXPECT_TRUE(folder.has("set/polar.txt"));
}

TEST(SetFolder, WhatIsNotFinishedIsGone) {
  const TempFolder folder;
  {
    const SetFolder set(folder.file("set"), "", false);
    scene::writeFile(set.path() + "/polar.txt", "new");
  }
  EXPECT_EQ(entries(folder.path()), 0U);
}

TEST(SetFolder, AScratchFolderIsWrittenInFirst) {
  const TempFolder folder;
  fs::create_directory(folder.file("scratch"));
  SetFolder set(folder.file("set"), folder.file("scratch"), false);
  EXPECT_EQ(fs::path(set.path()).parent_path(), folder.file("scratch"));
  writeSet(set);
  EXPECT_TRUE(folder.has("set/polar.txt"));
  EXPECT_EQ(entries(folder.file("scratch")), 0U);
}

TEST(SetFolder, AFolderThatIsNotEmptyNeedsForce) {
  const TempFolder folder;
  folder.write("kept.txt", "mine");
  EXPECT_THROW(SetFolder(folder.path().string(), "", false), polarline::InputError);
  folder.write("polar.txt", "old");
  folder.write("rectified.txt", "of an earlier set");
  folder.write("calib.json", "of an earlier set");
  SetFolder set(folder.path().string(), "", true);
  writeSet(set);
  EXPECT_EQ(folder.read("kept.txt"), "mine");
  EXPECT_EQ(folder.read("polar.txt"), "new");
  EXPECT_FALSE(folder.has("rectified.txt"));
  EXPECT_FALSE(folder.has("calib.json"));
}

TEST(SetFolder, AFileInItsPlaceIsNoFolder) {
  const TempFolder folder;
  EXPECT_THROW(SetFolder(folder.write("set", ""), "", true), polarline::InputError);
}

TEST(SetFolder, TheFolderAboveMustBeThere) {
  const TempFolder folder;
  EXPECT_THROW(SetFolder(folder.file("none/set"), "", false), polarline::OutputError);
}

}  // namespace
