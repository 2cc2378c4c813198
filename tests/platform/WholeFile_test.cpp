#include "platform/WholeFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <future>
#include <thread>

#include "polarline/errors.h"
#include "support/FolderContents.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"
#include "support/Unprivileged.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;
namespace fs = std::filesystem;

struct WholeFile : ::testing::Test {
  TempFolder folder;

  template <typename Write>
  static std::string failure(const Write& write) {
    try {
      write();
    } catch (const polarline::OutputError& error) {
      return error.what();
    }
    return "";
  }
  bool isEmpty() const { return fs::is_empty(folder.path()); }
};

TEST_F(WholeFile, WritesAnyBytesUnderAnyName) {
  const std::string bytes("a\0\xFF\r\n", 5);
  for (const char* name : {"plain", "with blanks", "quo\"te's", "line\nend", "no \xFF utf"}) {
    whole_file::write(folder.file(name), bytes);
    EXPECT_EQ(folder.read(name), bytes);
  }
  EXPECT_EQ(contentsOf(folder.path()).size(), 5U);
}

TEST_F(WholeFile, TakesThePlaceOfAnEarlierFile) {
  folder.write("file", "a longer one");
  whole_file::write(folder.file("file"), "new");
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("file", "new")));
}

TEST_F(WholeFile, AppearsWithTheCommitOnly) {
  folder.write("file", "earlier");
  {
    whole_file::PartialFile file(folder.file("file"));
    file.append("one ");
    file.append("two");
    EXPECT_EQ(folder.read("file"), "earlier");
    const auto contents = contentsOf(folder.path());
    ASSERT_EQ(contents.size(), 2U);
    EXPECT_THAT(contents.rbegin()->first, HasSubstr("file.partial-" + std::to_string(getpid()) + "-"));
    file.commit();
    EXPECT_EQ(folder.read("file"), "one two");
  }
  EXPECT_EQ(contentsOf(folder.path()).size(), 1U);
}

TEST_F(WholeFile, LeavesNothingWithoutACommit) {
  { whole_file::PartialFile(folder.file("file")).append("half"); }
  EXPECT_TRUE(isEmpty());
}

TEST_F(WholeFile, ThatMissesAPieceKeepsTheEarlierOneThoughThereIsSpaceAgain) {
  folder.write("file", "earlier");
  {
    whole_file::PartialFile file(folder.file("file"));
    {
      const FullDevice full;
      EXPECT_THAT(failure([&] { file.append(std::string(100000, 'x')); }), HasSubstr("File too large"));
    }
    EXPECT_THAT(failure([&] { file.append("more"); }), HasSubstr("File too large"));
    EXPECT_THAT(failure([&] { file.commit(); }), HasSubstr("File too large"));
  }
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("file", "earlier")));
}

TEST_F(WholeFile, TwoWritersOfOnePlaceDoNotMeet) {
  whole_file::PartialFile one(folder.file("file"));
  whole_file::PartialFile other(folder.file("file"));
  one.append("one");
  other.append("other");
  one.commit();
  EXPECT_EQ(folder.read("file"), "one");
  other.commit();
  EXPECT_EQ(folder.read("file"), "other");
}

TEST_F(WholeFile, TellsWhereAndWhyItCannotBe) {
  EXPECT_EQ(failure([&] { whole_file::write(folder.file("none/file"), "x"); }),
            folder.file("none/file") + ": No such file or directory");
  fs::create_directory(folder.file("sub"));
  EXPECT_EQ(failure([&] { whole_file::write(folder.file("sub"), "x"); }), folder.file("sub") + ": Is a directory");
  EXPECT_EQ(failure([] { whole_file::write("/dev/full", "x"); }), "/dev/full: No space left on device");
  fs::remove(folder.file("sub"));
  EXPECT_TRUE(isEmpty());
}

TEST_F(WholeFile, LeavesNothingHalfOnAFullDevice) {
  folder.write("file", "earlier");
  {
    const FullDevice full;
    EXPECT_EQ(failure([&] { whole_file::write(folder.file("file"), std::string(100000, 'x')); }),
              folder.file("file") + ": File too large");
  }
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("file", "earlier")));
}

TEST_F(WholeFile, WantsTheRightToWrite) {
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
  {
    const Unprivileged nobody;
    EXPECT_THAT(failure([&] { whole_file::write(folder.file("file"), "x"); }), HasSubstr("Permission denied"));
    EXPECT_THAT(failure([&] { whole_file::PartialFolder out(folder.file("out")); }), HasSubstr("Permission denied"));
  }
  EXPECT_TRUE(isEmpty());
}

TEST_F(WholeFile, GoesThroughALinkThatStays) {
  fs::create_directory(folder.file("far"));
  for (const char* target : {"far/there", "far/not yet"}) {
    const std::string link = folder.file(std::string("link to ") + fs::path(target).filename().string());
    if (std::string(target) == "far/there") folder.write(target, "earlier");
    fs::create_symlink(target, link);
    whole_file::write(link, "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_FALSE(fs::is_symlink(folder.file(target)));
    EXPECT_EQ(folder.read(target), "new");
  }
  fs::create_symlink(folder.file("link to there"), folder.file("link to a link"));
  whole_file::write(folder.file("link to a link"), "newer");
  EXPECT_EQ(folder.read("far/there"), "newer");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.file("far")), {}), 2);
}

TEST_F(WholeFile, NamesALinkThatLeadsNowhere) {
  fs::create_symlink("none/there", folder.file("link"));
  EXPECT_THAT(failure([&] { whole_file::write(folder.file("link"), "x"); }), HasSubstr("No such file or directory"));
  fs::create_symlink("circle", folder.file("circle"));
  EXPECT_THAT(failure([&] { whole_file::write(folder.file("circle"), "x"); }), HasSubstr("levels of symbolic links"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST_F(WholeFile, DeviceIsWrittenDirectly) {
  EXPECT_EQ(failure([] { whole_file::write("/dev/null", "x"); }), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(WholeFile, FolderIsGoneAtTheEndOfItsLife) {
  fs::path inside;
  for (const char* name : {"out", "out/"}) {
    const whole_file::PartialFolder out(folder.file(name));
    EXPECT_EQ(out.path().parent_path(), folder.path());
    EXPECT_THAT(out.path().filename().string(), ::testing::StartsWith("out.partial-"));
    std::ofstream(out.path() / "x") << "x";
    EXPECT_FALSE(folder.has("out"));
  }
  EXPECT_TRUE(isEmpty());
  EXPECT_THAT(failure([&] { whole_file::PartialFolder out(folder.file("none/out")); }),
              HasSubstr("none/out: No such file or directory"));
}

TEST_F(WholeFile, AbandonedFilesAndFoldersAreGone) {
  const pid_t process = fork();
  if (process == 0) {
    const whole_file::PartialFolder out(folder.file("out"));
    std::ofstream(out.path() / "x") << "x";
    whole_file::PartialFile half(folder.file("half"));
    half.append("half");
    whole_file::write(folder.file("whole"), "whole");
    whole_file::abandonAll();
    _exit(7);
  }
  int status = 0;
  waitpid(process, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 7);
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("whole", "whole")));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(WholeFile, CanBePutElsewhereThanItWasBegun) {
  whole_file::PartialFile file(folder.path() / "a");
  file.append("content");
  fs::create_directory(folder.path() / "b");
  file.commitAt(folder.path() / "b/c");
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("b/c", "content")));
}

TEST_F(WholeFile, NamesBesideAPlaceDiffer) {
  const fs::path place = folder.path() / "a";
  const fs::path first = whole_file::beside(place);
  EXPECT_EQ(first.parent_path(), folder.path());
  EXPECT_NE(first, whole_file::beside(place));
  EXPECT_THAT(first.filename().string(), ::testing::StartsWith("a.partial-"));
}

TEST_F(WholeFile, OfAProcessThatEndedIsAbandonedOthersAreNot) {
  const fs::path place = folder.path() / "a";
  const pid_t process = fork();
  if (process == 0) {
    whole_file::PartialFile half(place);
    _exit(0);
  }
  waitpid(process, nullptr, 0);
  const whole_file::PartialFile own(place);
  int abandoned = 0, all = 0;
  for (const auto& entry : fs::directory_iterator(folder.path())) {
    EXPECT_TRUE(whole_file::isPartial(entry.path()));
    abandoned += whole_file::isAbandoned(entry.path()) ? 1 : 0;
    ++all;
  }
  EXPECT_EQ(all, 2);
  EXPECT_EQ(abandoned, 1);
  EXPECT_FALSE(whole_file::isPartial(place));
  EXPECT_FALSE(whole_file::isAbandoned(place));
}

TEST_F(WholeFile, OfAProcessThatWasForkedOffIsItsOwn) {
  whole_file::beside(folder.path() / "a");  // The name that this process has.
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe(ends), 0);
  const pid_t process = fork();
  if (process == 0) {
    close(ends[1]);
    whole_file::PartialFile half(folder.path() / "a");
    char byte = 0;
    _exit(read(ends[0], &byte, 1) == 0 ? 0 : 1);
  }
  close(ends[0]);
  while (fs::is_empty(folder.path())) usleep(1000);
  const fs::path half = fs::directory_iterator(folder.path())->path();
  EXPECT_FALSE(whole_file::isAbandoned(half));
  close(ends[1]);
  waitpid(process, nullptr, 0);
  EXPECT_TRUE(whole_file::isAbandoned(half));
}

TEST_F(WholeFile, PathsThatAreToGoGoWithTheRest) {
  const pid_t process = fork();
  if (process == 0) {
    folder.write("goes", "");
    folder.write("stays", "");
    for (const char* name : {"goes", "stays"}) whole_file::addUnfinished(folder.path() / name);
    whole_file::forgetUnfinished(folder.path() / "stays");
    whole_file::abandonAll();
    _exit(0);
  }
  waitpid(process, nullptr, 0);
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("stays", "")));
}

TEST_F(WholeFile, ResultsThatBelongTogetherAreWaitedFor) {
  const pid_t process = fork();
  if (process == 0) {
    std::promise<void> has_begun;
    std::thread writer([&] {
      const whole_file::Together together;
      has_begun.set_value();
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      for (const char* name : {"a", "b"}) whole_file::write(folder.path() / name, name);
    });
    has_begun.get_future().wait();
    const bool are_written = whole_file::endTogether();
    whole_file::abandonAll();
    _exit(are_written ? 0 : 1);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("a", "a"), Pair("b", "b")));
}

TEST_F(WholeFile, ResultsThatBelongTogetherAreNotBegunAtTheEnd) {
  const pid_t process = fork();
  if (process == 0) {
    const bool are_written = whole_file::endTogether();
    std::thread writer([&] {
      const whole_file::Together together;
      whole_file::write(folder.path() / "a", "a");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    _exit(are_written ? 1 : 0);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_THAT(contentsOf(folder.path()), testing::IsEmpty());
}

TEST_F(WholeFile, ASyncedFolderStaysAsItIs) {
  folder.write("a", "b");
  whole_file::syncFolder(folder.path());
  whole_file::syncFolder(folder.path() / "none");
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("a", "b")));
}

}  // namespace
