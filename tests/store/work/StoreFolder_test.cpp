#include "store/work/StoreFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/batch.h"
#include "polarline/errors.h"
#include "support/FolderContents.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::Key;

struct StoreFolderOnDisk : ::testing::Test {
  TempFolder parent;
  std::string path = parent.file("a/store");
};

TEST_F(StoreFolderOnDisk, IsMadeWithItsMark) {
  const StoreFolder store(path);
  EXPECT_THAT(contentsOf(path), ElementsAre(Key("polarline-store.json")));
  EXPECT_NO_THROW(StoreFolder{path});
}

TEST_F(StoreFolderOnDisk, KeepsDocumentsByTheirFirstDigits) {
  const StoreFolder store(path);
  const StoredPlace place = store.madePlace("abcdef");
  EXPECT_EQ(place.document(), fs::path(path) / "ab/abcdef.json");
  EXPECT_EQ(place.metadata(), fs::path(path) / "ab/abcdef.metadata.json");
  EXPECT_EQ(place.claim(), fs::path(path) / "ab/abcdef.claim");
  EXPECT_TRUE(fs::is_directory(fs::path(path) / "ab"));
  EXPECT_EQ(store.place("cd12").document(), fs::path(path) / "cd/cd12.json");
  EXPECT_FALSE(fs::exists(fs::path(path) / "cd"));
}

TEST_F(StoreFolderOnDisk, ThatIsAwayIsNotMadeAnew) {
  const StoreFolder store(path);
  fs::rename(path, path + "_away");
  EXPECT_THROW(store.madePlace("abcdef"), OutputError);
  EXPECT_FALSE(fs::exists(path));
  fs::create_directory(path);  // The place of a disk that is not mounted.
  EXPECT_THROW(store.madePlace("abcdef"), OutputError);
  EXPECT_TRUE(fs::is_empty(path));
  fs::remove(path);
  fs::rename(path + "_away", path);
  EXPECT_NO_THROW(store.madePlace("abcdef"));
}

TEST_F(StoreFolderOnDisk, ThatHasToBeThereIsNeverMade) {
  using enum StoreFolder::IfMissing;
  EXPECT_THROW(StoreFolder(path, kRefuse), OutputError);
  EXPECT_FALSE(fs::exists(path));
  fs::create_directories(path);  // The place of a disk that is not mounted.
  EXPECT_THROW(StoreFolder(path, kRefuse), OutputError);
  EXPECT_THROW(StoreFolder(path, kMakeWhole), OutputError);
  EXPECT_THROW(makeStore(path), OutputError);
  EXPECT_TRUE(fs::is_empty(path));
  fs::remove(path);
  makeStore(path);
  EXPECT_THAT(contentsOf(path), ElementsAre(Key("polarline-store.json")));
  EXPECT_NO_THROW(makeStore(path));
  EXPECT_NO_THROW(StoreFolder(path, kRefuse));
}

TEST_F(StoreFolderOnDisk, ThatCannotBeMadeIsToldSo) {
  const std::string file = parent.write("file", "");
  EXPECT_THROW(StoreFolder{file}, OutputError);
  EXPECT_THROW(StoreFolder{file + "/store"}, OutputError);
  const FullDevice full;
  EXPECT_THROW(StoreFolder{path}, OutputError);
}

TEST_F(StoreFolderOnDisk, CountsTheTimeOfItsDevice) {
  const StoreFolder store(path);
  const StoredPlace place = store.madePlace("abcdef");
  const fs::path file = parent.write("a/store/other", "");
  const auto now = StoreFolder::now(place);
  ASSERT_TRUE(now);
  EXPECT_LT(std::chrono::abs(*now - fs::last_write_time(file)), std::chrono::seconds(5));
  EXPECT_TRUE(fs::is_empty(place.folder));
  fs::remove(place.folder);
  EXPECT_FALSE(StoreFolder::now(place));
}

TEST_F(StoreFolderOnDisk, IsFreedOfWhatIsHalfOfOneDocument) {
  const StoreFolder store(path);
  const StoredPlace place = store.madePlace("abcdef");
  for (const char* name :
       {"abcdef.json", "abcdef.claim", "abcdef.metadata.json", "abcdef.json.partial-1-2-3",
        "abcdef.claim.partial-1-2-3", "abcdef.metadata.json.partial-9-9-9", "abcdefg.json.partial-1-2-3"})
    parent.write(std::string("a/store/ab/") + name, "");
  removeLeftovers(place);
  EXPECT_THAT(contentsOf(place.folder), ElementsAre(Key("abcdef.claim"), Key("abcdef.json"),
                                                    Key("abcdef.metadata.json"), Key("abcdefg.json.partial-1-2-3")));
}

}  // namespace
}  // namespace polarline
