#include "store/work/MetadataFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "store/work/Names.h"
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
            "{\"metadata\":{\"serial\":\"A\\\"1\",\"station\":\"3\"},\"settings\":\"22\",\"place\":\"" +
                names::byPath("a", "22") + "\"}\n");
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

TEST_F(MetadataFileOnDisk, HasTheSettingsAlsoOfASetOfWhichTheListSaysNothing) {
  set.metadata.clear();
  EXPECT_FALSE(hasMetadata(place, set, "22"));
  writeMetadata(place, set, "22");
  EXPECT_EQ(folder.read("abcdef.metadata.json"),
            "{\"metadata\":{},\"settings\":\"22\",\"place\":\"" + names::byPath("a", "22") + "\"}\n");
  EXPECT_TRUE(hasMetadata(place, set, "22"));
}

TEST_F(MetadataFileOnDisk, IsThatOfTheFirstLineOfAListThatSaysAnythingInWhateverOrderTheyCome) {
  const auto lines = parseBatchList("a\nb\tserial=B\nc\tserial=C\n", "l.txt");
  std::vector<std::size_t> order = {0, 1, 2};
  do {
    std::filesystem::remove(place.metadata());
    for (const std::size_t k : order) writeMetadata(place, lines[k], "22");
    EXPECT_THAT(folder.read("abcdef.metadata.json"), ::testing::HasSubstr("{\"serial\":\"B\"}"));
    for (const BatchSet& line : lines) EXPECT_TRUE(hasMetadata(place, line, "22"));
  } while (std::ranges::next_permutation(order).found);
}

TEST_F(MetadataFileOnDisk, NamesTheFirstOfTheLinesThatSayTheSame) {
  for (const char* list : {"a\tserial=B\nb\tserial=B\n", "a\nb\n"}) {
    const auto lines = parseBatchList(list, "l.txt");
    for (const bool first_comes_first : {true, false}) {
      std::filesystem::remove(place.metadata());
      writeMetadata(place, lines[first_comes_first ? 0 : 1], "22");
      EXPECT_EQ(hasMetadata(place, lines[first_comes_first ? 1 : 0], "22"), first_comes_first);
      writeMetadata(place, lines[first_comes_first ? 1 : 0], "22");
      EXPECT_THAT(folder.read("abcdef.metadata.json"), ::testing::HasSubstr("\"line\":1}"));
    }
  }
}

TEST_F(MetadataFileOnDisk, OfAnotherListIsRenewedByWhicheverLine) {
  writeMetadata(place, parseBatchList("b\tserial=B\n", "l.txt")[0], "22");
  const BatchSet later = parseBatchList("a\nb\tserial=C\n", "l.txt")[1];
  EXPECT_FALSE(hasMetadata(place, later, "22"));
  writeMetadata(place, later, "22");
  EXPECT_THAT(folder.read("abcdef.metadata.json"), ::testing::HasSubstr("\"line\":2}"));
  // A list that grew says the same of it.
  EXPECT_TRUE(hasMetadata(place, parseBatchList("a\nb\tserial=C\nd\n", "l.txt")[1], "22"));
}

TEST_F(MetadataFileOnDisk, IsWrittenAnewWhereItIsCutOff) {
  for (const char* broken : {"", "{\"metadata\":{\"serial", "[]", "{\"settings\":\"22\"}"}) {
    folder.write("abcdef.metadata.json", broken);
    EXPECT_FALSE(hasMetadata(place, set, "22")) << broken;
  }
  set.metadata[0].second = "\xff";  // No UTF-8.
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
