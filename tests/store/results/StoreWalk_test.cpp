#include "store/results/StoreWalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using namespace polarline::results;
using ::testing::ElementsAre;

struct StoreWalkOf : ::testing::Test {
  TempFolder store;

  void add(const std::string& folder, const std::string& file, const std::string& content = "{}") const {
    std::filesystem::create_directories(store.path() / folder);
    store.write(folder + "/" + file, content);
  }
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const FoundDocument& each : walkStore(store.path())) names.push_back(each.name);
    return names;
  }
};

TEST_F(StoreWalkOf, FindsDocumentsByName) {
  add("ff", "ff01.json");
  add("0a", "0a9.json");
  add("0a", "0a1.json");
  EXPECT_THAT(names(), ElementsAre("0a1", "0a9", "ff01"));
}

TEST_F(StoreWalkOf, KnowsTheStatesOfADocumentAndOfWhatStandsBesideIt) {
  add("0a", "0a1.json", "12345");
  add("0a", "0a1.metadata.json", "123");
  add("0a", "0a2.json", "1");
  const auto found = walkStore(store.path());
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].document, stateOf(store.path() / "0a/0a1.json"));
  EXPECT_EQ(found[0].document.size, 5);
  EXPECT_EQ(found[0].metadata.size, 3);
  EXPECT_FALSE(found[1].metadata.isThere());
}

TEST_F(StoreWalkOf, PassesOverWhatIsNoDocument) {
  add("0a", "0a1.json");
  for (const char* file : {"0a1.claim", "0a1.json.partial-7-1", "0a1.metadata.json", "0b1.json", "0aX.json", "0A1.json",
                           ".json", "0a1.txt"})
    add("0a", file);
  add("joblog", "0a1.json");
  add("xy", "xy1.json");
  add("0c/0c1.json", "a folder");
  store.write("0d", "a file where a folder could be");
  store.write("polarline-store.json", "{}");
  EXPECT_THAT(names(), ElementsAre("0a1"));
}

TEST_F(StoreWalkOf, OfAFolderThatIsNotThereThrows) {
  EXPECT_THROW(walkStore(store.path() / "none"), polarline::InputError);
}

TEST(StoreWalkPaths, LieInTheFolderOfTheirFirstTwoDigits) {
  EXPECT_EQ(documentPath("/s", "0a1f"), "/s/0a/0a1f.json");
  EXPECT_EQ(metadataPath("/s", "0a1f"), "/s/0a/0a1f.metadata.json");
}

}  // namespace
