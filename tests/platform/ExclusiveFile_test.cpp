#include "platform/ExclusiveFile.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <vector>

#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

struct ExclusiveFileOnDisk : ::testing::Test {
  TempFolder folder;
  fs::path place = folder.path() / "file";
};

TEST_F(ExclusiveFileOnDisk, IsThereWithItsContentUntilTheEnd) {
  auto file = ExclusiveFile::take(place, "mine");
  ASSERT_TRUE(file);
  EXPECT_EQ(folder.read("file"), "mine");
  EXPECT_TRUE(file->isThere());
  file.reset();
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(ExclusiveFileOnDisk, IsOneOwners) {
  auto first = ExclusiveFile::take(place, "mine");
  EXPECT_FALSE(ExclusiveFile::take(place, "yours"));
  EXPECT_EQ(folder.read("file"), "mine");
  first.reset();
  EXPECT_TRUE(ExclusiveFile::take(place, "yours"));
}

/// Of many processes that want it at the same moment one has it.
TEST_F(ExclusiveFileOnDisk, IsOneProcesss) {
  int start[2];
  ASSERT_EQ(pipe(start), 0);
  std::vector<pid_t> processes;
  for (int k = 0; k < 8; ++k) {
    processes.push_back(fork());
    if (processes.back() != 0) continue;
    close(start[1]);
    char byte = 0;
    if (read(start[0], &byte, 1) != 0) _exit(2);
    const auto file = ExclusiveFile::take(place, std::to_string(getpid()));
    _exit(file ? 1 : 0);  // Without an end of the object: the file stays.
  }
  close(start[0]);
  close(start[1]);
  int owners = 0;
  for (const pid_t process : processes) {
    int status = 0;
    waitpid(process, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_LT(WEXITSTATUS(status), 2);
    owners += WEXITSTATUS(status);
  }
  EXPECT_EQ(owners, 1);
}

TEST_F(ExclusiveFileOnDisk, LeavesAnotherInItsPlaceAlone) {
  auto file = ExclusiveFile::take(place, "mine");
  fs::remove(place);
  folder.write("file", "yours");
  fs::last_write_time(place, fs::last_write_time(place) - std::chrono::hours(1));
  const auto before = fs::last_write_time(place);
  EXPECT_FALSE(file->isThere());
  file->touch();
  EXPECT_EQ(fs::last_write_time(place), before);
  file.reset();
  EXPECT_EQ(folder.read("file"), "yours");
}

TEST_F(ExclusiveFileOnDisk, HasTheTimeOfItsLastTouch) {
  const auto file = ExclusiveFile::take(place, "mine");
  fs::last_write_time(place, fs::last_write_time(place) - std::chrono::hours(1));
  const auto before = fs::last_write_time(place);
  file->touch();
  EXPECT_GT(fs::last_write_time(place) - before, std::chrono::minutes(59));
}

TEST_F(ExclusiveFileOnDisk, ThatNobodyCanHaveIsAFailure) {
  EXPECT_THROW(ExclusiveFile::take(folder.path() / "none/file", ""), polarline::OutputError);
  const FullDevice full;
  EXPECT_THROW(ExclusiveFile::take(place, "mine"), polarline::OutputError);
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(ExclusiveFileOnDisk, GoesWhenASignalEndsTheProcess) {
  const pid_t process = fork();
  if (process == 0) {
    const auto file = ExclusiveFile::take(place, "mine");
    whole_file::abandonAll();
    _exit(fs::is_empty(folder.path()) ? 3 : 4);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

}  // namespace
