#include "platform/FolderWatch.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

struct FolderWatchOnDisk : ::testing::Test {
  TempFolder folder;
  FolderWatch watch;

  FolderWatchOnDisk() { watch.add(folder.path().string()); }
  bool noticed() { return watch.wait(milliseconds(30)); }
};

TEST_F(FolderWatchOnDisk, NoticesWhatComes) {
  EXPECT_FALSE(noticed());
  folder.write("file", "content");
  EXPECT_TRUE(noticed());
  EXPECT_FALSE(noticed());
  fs::create_directory(folder.file("a"));
  EXPECT_TRUE(noticed());
  fs::rename(folder.file("file"), folder.file("another"));
  EXPECT_TRUE(noticed());
  fs::remove(folder.file("another"));
  EXPECT_FALSE(noticed());
}

TEST_F(FolderWatchOnDisk, LooksWhereItWasToldTo) {
  fs::create_directory(folder.file("a"));
  noticed();
  folder.write("a/file", "");
  EXPECT_FALSE(noticed());
  watch.add(folder.file("a"));
  watch.add(folder.file("a"));
  watch.add(folder.file("none"));
  folder.write("a/file", "more");
  EXPECT_TRUE(noticed());
  watch.remove(folder.file("a"));
  watch.remove(folder.file("a"));
  noticed();  // The system tells that it looks there no longer.
  folder.write("a/file", "most");
  EXPECT_FALSE(noticed());
}

TEST_F(FolderWatchOnDisk, WaitsNoLongerThanItWasToldTo) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(watch.wait(milliseconds(60)));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(50));
}

}  // namespace
