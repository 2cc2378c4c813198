#include "store/results/StoredFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "support/TempFolder.h"
#include "support/Unprivileged.h"

namespace {

namespace fs = std::filesystem;
using polarline::results::readStoredFile;
using polarline::results::stateOf;

TEST(StoredFileState, IsThatOfAFileAndNoneOfAnythingElse) {
  const TempFolder folder;
  EXPECT_EQ(stateOf(folder.write("file", "abc")).size, 3);
  EXPECT_TRUE(stateOf(folder.write("empty", "")).isThere());
  EXPECT_FALSE(stateOf(folder.file("none")).isThere());
  EXPECT_FALSE(stateOf(folder.path()).isThere());
  EXPECT_FALSE(stateOf(folder.file("file") + "/in it").isThere());
}

TEST(StoredFileState, TellsAFileThatCameByRenamingFromTheOneBefore) {
  const TempFolder folder;
  const std::string path = folder.write("file", "abc");
  const auto before = stateOf(path);
  const auto time = fs::last_write_time(path);
  fs::rename(folder.write("beside", "xyz"), path);
  fs::last_write_time(path, time);
  const auto after = stateOf(path);
  EXPECT_EQ(after.size, before.size);
  EXPECT_EQ(after.modified, before.modified);
  EXPECT_NE(after, before);
}

TEST(StoredFileRead, IsTheWholeFileAndItsState) {
  const TempFolder folder;
  const std::string content(300'000, 'x');
  const std::string path = folder.write("file", content + std::string("\0\n", 2));
  const auto file = readStoredFile(path);
  EXPECT_EQ(file.text, content + std::string("\0\n", 2));
  EXPECT_EQ(file.state, stateOf(path));
}

TEST(StoredFileRead, OfOneThatIsGoneIsNone) {
  const TempFolder folder;
  EXPECT_FALSE(readStoredFile(folder.file("none")).state.isThere());
  EXPECT_FALSE(readStoredFile(folder.file("none/deeper")).state.isThere());
}

TEST(StoredFileRead, OfWhatCannotBeReadThrows) {
  const TempFolder folder;
  EXPECT_THROW(readStoredFile(folder.path()), std::system_error);
  const std::string path = folder.write("file", "abc");
  fs::permissions(folder.path(), fs::perms::all);
  fs::permissions(path, fs::perms::none);
  const Unprivileged nobody;
  EXPECT_THROW(readStoredFile(path), std::system_error);
}

}  // namespace
