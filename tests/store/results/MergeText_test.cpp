#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "polarline/store.h"
#include "support/DocumentCheck.h"

namespace {

using polarline::mergeJson;
using polarline::MergeResult;
using polarline::mergeText;

MergeResult some() {
  MergeResult result;
  result.documents = 12;
  result.added = 3;
  result.replaced = 2;
  result.renewed = 1;
  result.elsewhere = 4;
  result.unchanged = 5;
  result.sets = 1;
  result.unreadable = {{"/s/0a/0a1.json", "byte 3: \"]\" was wanted"}, {"/s/\xff.json", "cut off"}};
  return result;
}

TEST(MergeText, TellsWhatWasDone) {
  EXPECT_EQ(
      mergeText(some()),
      "12 documents: 3 added, 2 replaced, 5 unchanged, 1 with other metadata, 4 of which another store has a later "
      "one\nThe results have 1 set.\n2 files could not be read and are told in the table quarantine.\n");
}

TEST(MergeText, LeavesOutWhatThereIsNone) {
  MergeResult result;
  result.documents = result.added = 1;
  result.sets = 7;
  EXPECT_EQ(mergeText(result), "1 document: 1 added, 0 replaced, 0 unchanged\nThe results have 7 sets.\n");
  result.unreadable = {{"a", "b"}};
  EXPECT_THAT(mergeText(result),
              ::testing::EndsWith("1 file could not be read and is told in the table quarantine.\n"));
}

TEST(MergeTextJson, IsOfItsSchemaWhateverThePaths) {
  const nlohmann::json json = DocumentCheck::of("merge").parsed(mergeJson(some()));
  EXPECT_EQ(json["documents"], 12);
  EXPECT_EQ(json["added"], 3);
  EXPECT_EQ(json["replaced"], 2);
  EXPECT_EQ(json["renewed"], 1);
  EXPECT_EQ(json["elsewhere"], 4);
  EXPECT_EQ(json["unchanged"], 5);
  EXPECT_EQ(json["sets"], 1);
  EXPECT_EQ(json["unreadable"][0]["path"], "/s/0a/0a1.json");
  EXPECT_EQ(json["unreadable"][0]["reason"], "byte 3: \"]\" was wanted");
  EXPECT_EQ(json["unreadable"][1]["path"], "/s/\xEF\xBF\xBD.json") << "bytes that are no text are replaced";
}

}  // namespace
