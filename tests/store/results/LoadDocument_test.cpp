#include "store/results/LoadDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "store/MadeStore.h"
#include "store/results/StoreWalk.h"

namespace {

using made_store::check;
using made_store::name;
using polarline::results::loadDocument;
using ::testing::HasSubstr;

TEST(LoadDocumentOf, IsTheDocumentAndWhatStandsBesideIt) {
  const made_store::Store store;
  store.add(name(1), check({0.05}), {{"station", "3"}});
  const auto loaded = loadDocument(store.path(), name(1));
  EXPECT_EQ(loaded.name, name(1));
  EXPECT_EQ(loaded.document, polarline::results::stateOf(store.file(name(1))));
  EXPECT_EQ(loaded.sha256.size(), 64U);
  ASSERT_TRUE(loaded.rows);
  EXPECT_EQ(loaded.rows->verdict, "pass");
  EXPECT_EQ(loaded.set.value("station"), "3");
  EXPECT_EQ(loaded.document_fault + loaded.metadata_fault, "");
}

TEST(LoadDocumentOf, IsNoneWhereThereIsNone) {
  const made_store::Store store;
  const auto loaded = loadDocument(store.path(), name(1));
  EXPECT_FALSE(loaded.document.isThere());
  EXPECT_FALSE(loaded.rows);
  EXPECT_EQ(loaded.document_fault + loaded.metadata_fault, "");
}

TEST(LoadDocumentOf, TellsWhatIsWrongWithEachOfTheTwo) {
  const made_store::Store store;
  store.write(name(1), "{\"schema\": 7}");
  store.write(name(1), "[]", ".metadata.json");
  const auto loaded = loadDocument(store.path(), name(1));
  EXPECT_TRUE(loaded.document.isThere());
  EXPECT_FALSE(loaded.rows);
  EXPECT_THAT(loaded.document_fault, HasSubstr("byte "));
  EXPECT_THAT(loaded.metadata_fault, HasSubstr("byte "));
}

TEST(LoadDocumentOf, OfWhatCannotBeReadKnowsNoStateSoThatItIsTriedAgain) {
  const made_store::Store store;
  std::filesystem::create_directories(store.file(name(1)));
  const auto loaded = loadDocument(store.path(), name(1));
  EXPECT_THAT(loaded.document_fault, HasSubstr("can't be read: "));
  EXPECT_FALSE(loaded.document.isThere());
}

}  // namespace
