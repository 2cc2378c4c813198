#include "store/results/DocumentWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "store/MadeStore.h"
#include "store/results/MadeRows.h"
#include "store/results/Schema.h"

namespace {

using namespace polarline::results;
using made_rows::document;
using made_rows::loaded;
using Outcome = DocumentWriter::Outcome;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DocumentWriterOf : ::testing::Test {
  made_store::Results results;
  std::unique_ptr<sqlite::Database> database = openResultsToWrite(results.path());
  DocumentWriter writer{*database};
  std::int64_t store = writer.store("/store"), other = writer.store("/other");

  std::string set() const { return results.one("SELECT s.document, s.started FROM sets s"); }
};

TEST_F(DocumentWriterOf, StoresHaveOneNumberEach) {
  EXPECT_NE(store, other);
  EXPECT_EQ(writer.store("/store"), store);
  EXPECT_THAT(results.rows("SELECT path FROM stores ORDER BY id"), ElementsAre("/store", "/other"));
}

TEST_F(DocumentWriterOf, ANewSetIsAddedAndItsFilesAreKnown) {
  LoadedDocument one = loaded("0a1", "hash");
  one.metadata = {7, 8, 9};
  EXPECT_EQ(writer.write(store, one), Outcome::kAdded);
  const auto known = writer.known(store, "0a1");
  ASSERT_TRUE(known);
  EXPECT_EQ(known->document, one.document);
  EXPECT_EQ(known->metadata, one.metadata);
  EXPECT_EQ(writer.knownOf(store).size(), 1U);
  EXPECT_EQ(writer.knownOf(store).at("0a1"), *known);
  EXPECT_THAT(writer.knownOf(other), IsEmpty());
  EXPECT_FALSE(writer.known(other, "0a1"));
}

TEST_F(DocumentWriterOf, TheSameContentInANewFileChangesNothingButWhatIsKnown) {
  writer.write(store, loaded("0a1", "hash", 100));
  EXPECT_EQ(writer.write(store, loaded("0a1", "hash", 200, document("2026-09-09T00:00:00Z"))), Outcome::kUnchanged);
  EXPECT_EQ(writer.known(store, "0a1")->document.size, 200);
  EXPECT_EQ(set(), "1|2026-01-02T03:04:05Z");
}

TEST_F(DocumentWriterOf, OtherContentReplacesTheSetAlsoWhereItGotWorse) {
  writer.write(store, loaded("0a1", "hash"));
  EXPECT_EQ(writer.write(store, loaded("0a1", "later", 100, document("2026-01-03T00:00:00Z"))), Outcome::kReplaced);
  EXPECT_EQ(set(), "1|2026-01-03T00:00:00Z");
  EXPECT_EQ(writer.write(store, loaded("0a1", "worse", 100, document("2026-01-01T00:00:00Z", true))),
            Outcome::kReplaced);
  EXPECT_EQ(set(), "1|2026-01-01T00:00:00Z");
}

TEST_F(DocumentWriterOf, MetadataThatChangedAreRenewedAlone) {
  LoadedDocument one = loaded("0a1", "hash");
  writer.write(store, one);
  one.metadata = {5, 1, 1};
  one.set.values = {{"station", "3"}};
  EXPECT_EQ(writer.write(store, one), Outcome::kRenewed);
  EXPECT_EQ(results.one("SELECT station FROM sets"), "3");
  EXPECT_EQ(writer.write(store, one), Outcome::kUnchanged);
  one.metadata_fault = "cut off";
  one.set = {};
  EXPECT_EQ(writer.write(store, one), Outcome::kUnchanged);
  EXPECT_EQ(results.one("SELECT station FROM sets"), "3") << "what can't be read takes nothing away";
  EXPECT_FALSE(writer.known(store, "0a1")->metadata.isThere()) << "so that it is read again";
}

TEST_F(DocumentWriterOf, WhatCannotBeReadIsKnownAsNotThereAndLeavesTheSet) {
  writer.write(store, loaded("0a1", "hash"));
  LoadedDocument broken = loaded("0a1", "broken");
  broken.rows.reset();
  broken.document_fault = "byte 7: ...";
  EXPECT_EQ(writer.write(store, broken), Outcome::kUnreadable);
  EXPECT_FALSE(writer.known(store, "0a1")->document.isThere());
  EXPECT_EQ(set(), "1|2026-01-02T03:04:05Z");
  EXPECT_EQ(writer.write(store, loaded("0a1", "hash")), Outcome::kReplaced) << "mended";
}

TEST_F(DocumentWriterOf, WhatIsGoneMeanwhileIsPassedOver) {
  LoadedDocument gone;
  gone.name = "0a1";
  EXPECT_EQ(writer.write(store, gone), Outcome::kGone);
  EXPECT_FALSE(writer.known(store, "0a1"));
  EXPECT_THAT(results.rows("SELECT * FROM sets"), IsEmpty());
}

/// The document of one store, then that of another: whether the second one counts.
struct Rivals {
  const char* started;
  bool retry;
  const char* hash;
  bool counts;
};

class DocumentWriterRivals : public DocumentWriterOf, public ::testing::WithParamInterface<Rivals> {};

TEST_P(DocumentWriterRivals, TheOneThatNeedsNoRetryCountsThenTheLaterOne) {
  const auto& [started, retry, hash, counts] = GetParam();
  writer.write(store, loaded("0a1", "m", 100, document("2026-01-02T00:00:00Z")));
  EXPECT_EQ(writer.write(other, loaded("0a1", hash, 100, document(started, retry))),
            counts ? Outcome::kReplaced : Outcome::kElsewhere);
  EXPECT_EQ(set(), counts ? std::string("2|") + started : "1|2026-01-02T00:00:00Z");
  EXPECT_EQ(writer.forgotten(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Orders, DocumentWriterRivals,
                         ::testing::Values(Rivals{"2026-01-03T00:00:00Z", false, "a", true},
                                           Rivals{"2026-01-01T00:00:00Z", false, "z", false},
                                           Rivals{"2026-01-03T00:00:00Z", true, "z", false},
                                           Rivals{"2026-01-02T00:00:00Z", false, "z", true},
                                           Rivals{"2026-01-02T00:00:00Z", false, "a", false}));

TEST_F(DocumentWriterOf, ADocumentThatGotWorseMakesItsRivalsCountAgain) {
  writer.write(store, loaded("0a1", "m", 100, document("2026-01-03T00:00:00Z")));
  writer.write(other, loaded("0a1", "n", 100, document("2026-01-02T00:00:00Z")));
  writer.write(other, loaded("0a2", "o"));
  writer.write(store, loaded("0a1", "p", 100, document("2026-01-04T00:00:00Z", true)));
  EXPECT_EQ(writer.forgotten(), 1U);
  EXPECT_FALSE(writer.known(other, "0a1")->document.isThere());
  EXPECT_TRUE(writer.known(other, "0a2")->document.isThere());
  EXPECT_EQ(writer.write(other, loaded("0a1", "n", 100, document("2026-01-02T00:00:00Z"))), Outcome::kReplaced);
  EXPECT_EQ(results.one("SELECT started FROM sets WHERE name = '0a1'"), "2026-01-02T00:00:00Z");
}

TEST_F(DocumentWriterOf, QuarantineNamesAFileOnceAndLetsItGo) {
  writer.quarantine("/store/0a/0a1.json", "cut off");
  writer.quarantine("/store/0a/0a1.json", "empty");
  writer.quarantine("/store/0a/0a2.json", "cut off");
  EXPECT_THAT(results.rows("SELECT path, reason FROM quarantine"),
              ElementsAre("/store/0a/0a1.json|empty", "/store/0a/0a2.json|cut off"));
  writer.release("/store/0a/0a1.json");
  EXPECT_THAT(results.rows("SELECT path FROM quarantine"), ElementsAre("/store/0a/0a2.json"));
}

}  // namespace
