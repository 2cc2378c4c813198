#include "store/work/ReadyFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

struct ReadyFolders : ::testing::Test {
  TempFolder parent;
  void make(const std::string& name) const { fs::create_directory(parent.file(name)); }
};

TEST_F(ReadyFolders, AreThoseWithTheFileOldestFirst) {
  for (const char* name : {"early", "late", "not_yet", ".hidden"}) make(name);
  parent.write("ready", "");
  parent.write("file", "");
  parent.write(".hidden/ready", "");
  parent.write("late/ready", "");
  parent.write("early/ready", "");
  fs::last_write_time(parent.file("early/ready"),
                      fs::last_write_time(parent.file("late/ready")) - std::chrono::hours(1));
  std::vector<std::string> ready;
  std::vector<std::string> others;
  for (const WatchedFolder& each : foldersIn(parent.path())) (each.is_ready ? ready : others).push_back(each.path);
  EXPECT_THAT(ready, ElementsAre(parent.file("early"), parent.file("late")));
  EXPECT_THAT(others, ElementsAre(parent.file("not_yet")));
  EXPECT_THAT(foldersIn(parent.file("none")), IsEmpty());
}

TEST_F(ReadyFolders, TellMetadataInTheFile) {
  make("a");
  parent.write("a/ready", "serial=A 1\tstation=3\r\n\nmodel=m\n");
  const BatchSet set = readySet({parent.file("a"), true, {}});
  EXPECT_EQ(set.folder, parent.file("a"));
  EXPECT_THAT(set.metadata, ElementsAre(Pair("serial", "A 1"), Pair("station", "3"), Pair("model", "m")));
  parent.write("a/ready", "done\n");
  EXPECT_THROW(readySet({parent.file("a"), true, {}}), InputError);
}

}  // namespace
}  // namespace polarline
