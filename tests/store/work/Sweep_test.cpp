#include "store/work/Sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "platform/WholeFile.h"
#include "support/FolderContents.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::UnorderedElementsAre;

/// A store with a document, and what workers left in it.
struct SweepOfAStore : ::testing::Test {
  TempFolder parent;
  std::string path = parent.file("store");
  StoreFolder store{path};
  StoredPlace place = store.madePlace("abcdef");

  void SetUp() override { std::ofstream(place.document()) << "whole"; }
  /// A worker's sign, and files half written beside these, by a process that was killed.
  void leave(const std::vector<fs::path>& places) const {
    const pid_t process = fork();
    if (process == 0) {
      const WorkerSign sign(store);
      for (const fs::path& each : places) std::ofstream(whole_file::beside(each)) << "half";
      _exit(0);
    }
    waitpid(process, nullptr, 0);
  }
  /// One of a machine that is not this one.
  fs::path foreign(const fs::path& beside, std::chrono::hours age) const {
    fs::path file = beside;
    file += ".partial-1-77-5-6-0";
    std::ofstream(file) << "half";
    fs::last_write_time(file, *StoreFolder::now(place) - age);
    return file;
  }
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& [name, content] : contentsOf(path)) names.push_back(name);
    return names;
  }
};

TEST_F(SweepOfAStore, SparesTheFoldersOfDocumentsWhereNoWorkerDied) {
  leave({place.document()});
  for (const auto& entry : fs::directory_iterator(path))
    if (entry.path().filename().string().starts_with("polarline-store.worker")) fs::remove(entry.path());
  const auto before = contentsOf(path);
  sweep(store);
  EXPECT_EQ(contentsOf(path), before);
}

TEST_F(SweepOfAStore, SignGoesWithItsWorker) {
  const auto before = contentsOf(path);
  {
    const WorkerSign sign(store);
    EXPECT_EQ(files().size(), before.size() + 1);
    sweep(store);
    EXPECT_EQ(files().size(), before.size() + 1);
  }
  EXPECT_EQ(contentsOf(path), before);
}

TEST_F(SweepOfAStore, RemovesWhatProcessesOfThisMachineLeftWhereverItIs) {
  leave({path + "/polarline-store.json", path + "/polarline-store.clock", place.document(), place.metadata(),
         place.claim(), place.folder / "abffff.json"});
  EXPECT_EQ(files().size(), 9U);
  sweep(store);
  EXPECT_THAT(files(), UnorderedElementsAre("polarline-store.json", "ab/abcdef.json"));
}

TEST_F(SweepOfAStore, LeavesWhatALivingProcessWrites) {
  leave({});
  std::ofstream(place.claim()) << "of somebody";
  const whole_file::PartialFile document(place.document());
  const whole_file::PartialFile mark(path + "/polarline-store.json");
  for (const auto& entry : fs::recursive_directory_iterator(path))  // Nor does it matter how long it takes.
    if (whole_file::isPartial(entry.path()))
      fs::last_write_time(entry.path(), *StoreFolder::now(place) - std::chrono::hours(1));
  EXPECT_EQ(files().size(), 6U);
  sweep(store);
  EXPECT_EQ(files().size(), 5U);  // Without the sign of the dead.
}

TEST_F(SweepOfAStore, LeavesWhatAnotherMachineWritesForADay) {
  leave({});
  const fs::path young = foreign(place.document(), std::chrono::hours(23));
  const fs::path old = foreign(place.metadata(), std::chrono::hours(25));
  const fs::path root = foreign(path + "/polarline-store.json", std::chrono::hours(25));
  sweep(store);
  EXPECT_TRUE(fs::exists(young));
  EXPECT_FALSE(fs::exists(old));
  EXPECT_FALSE(fs::exists(root));
}

TEST_F(SweepOfAStore, KnowsTheDeadOfAnotherMachineByTheirOldSign) {
  foreign(path + "/polarline-store.worker", std::chrono::hours(25));
  foreign(place.metadata(), std::chrono::hours(25));
  sweep(store);
  EXPECT_THAT(files(), UnorderedElementsAre("polarline-store.json", "ab/abcdef.json"));
}

TEST_F(SweepOfAStore, LeavesWhatIsClaimedHoweverOldItIs) {
  leave({});
  std::ofstream(place.claim()) << "of somebody";
  const fs::path old = foreign(place.document(), std::chrono::hours(1000));
  sweep(store);
  EXPECT_TRUE(fs::exists(old));
  fs::remove(place.claim());
  leave({});
  sweep(store);
  EXPECT_FALSE(fs::exists(old));
}

TEST_F(SweepOfAStore, LeavesOtherFoldersAlone) {
  fs::create_directory(path + "/joblog");
  leave({path + "/joblog/a"});
  sweep(store);
  EXPECT_EQ(files().size(), 3U);
  fs::rename(path, path + "_away");
  EXPECT_NO_THROW(sweep(store));
}

}  // namespace
}  // namespace polarline
