#include "store/work/MetadataFile.h"

#include <gtest/gtest.h>

#include "support/FolderContents.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

struct MetadataFileOnDisk : ::testing::Test {
  TempFolder folder;
  StoredPlace place{folder.path(), "abcdef"};
  BatchSet set{1, "a", {{"serial", "A\"1"}, {"station", "3"}}};
};

TEST_F(MetadataFileOnDisk, HoldsWhatTheListSays) {
  EXPECT_FALSE(hasMetadata(place, set, "22"));
  writeMetadata(place, set, "22");
  EXPECT_EQ(folder.read("abcdef.metadata.json"),
            "{\"metadata\":{\"serial\":\"A\\\"1\",\"station\":\"3\"},\"settings\":\"22\"}\n");
  EXPECT_TRUE(hasMetadata(place, set, "22"));
  EXPECT_FALSE(hasMetadata(place, set, "23"));
}

TEST_F(MetadataFileOnDisk, IsRenewedWhenTheListSaysOtherwise) {
  writeMetadata(place, set, "22");
  set.metadata[1].second = "4";
  EXPECT_FALSE(hasMetadata(place, set, "22"));
  writeMetadata(place, set, "22");
  EXPECT_TRUE(hasMetadata(place, set, "22"));
}

TEST_F(MetadataFileOnDisk, StaysWhenTheListSaysNothing) {
  writeMetadata(place, set, "22");
  const auto before = contentsOf(folder.path());
  set.metadata.clear();
  EXPECT_TRUE(hasMetadata(place, set, "22"));
  writeMetadata(place, set, "22");
  EXPECT_EQ(contentsOf(folder.path()), before);
}

}  // namespace
}  // namespace polarline
