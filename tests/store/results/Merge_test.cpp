#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "polarline/errors.h"
#include "store/MadeStore.h"

namespace {

using made_store::check;
using made_store::failed;
using made_store::name;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Merge : ::testing::Test {
  made_store::Store store;
  made_store::Results results;

  /// What a merge of these stores into a file of its own comes to.
  static std::vector<std::string> undisturbed(const std::vector<std::string>& stores) {
    const made_store::Results fresh;
    fresh.merge(stores);
    return fresh.content();
  }
  void isAsAFreshMerge() const { EXPECT_EQ(results.content(), undisturbed({store.path()})); }
};

TEST_F(Merge, TakesSetsWithTheirMetadata) {
  store.add(
      name(1), check({0.05, 0.2}),
      {{"serial", "A-1"}, {"station", "3"}, {"model", "K2"}, {"time", "2026-01-01T23:30:00-01:00"}, {"shift", "late"}});
  store.add(name(2), failed());
  const auto done = results.merge(store);
  EXPECT_EQ(done.documents, 2U);
  EXPECT_EQ(done.added, 2U);
  EXPECT_EQ(done.sets, 2U);
  EXPECT_THAT(
      results.rows("SELECT serial, station, model, time, day, has_time, verdict, settings FROM sets ORDER BY name"),
      ElementsAre("A-1|3|K2|2026-01-02T00:30:00Z|2026-01-02|1|fail|5e", "|||2026-01-02T03:04:05Z|2026-01-02|0|error|"));
  EXPECT_THAT(results.rows("SELECT key, value FROM metadata ORDER BY key"),
              ElementsAre("model|K2", "serial|A-1", "shift|late", "station|3", "time|2026-01-01T23:30:00-01:00"));
  EXPECT_THAT(results.rows("SELECT pair, name, value FROM figure_values WHERE figure = 'dy_means' ORDER BY pair"),
              ElementsAre("0|dy_means|0.05", "1|dy_means|0.2"));
}

/// A worker comes again while the disk of the sets is away.
TEST_F(Merge, CountsASetOnceThatWasJudgedAndCouldNotBeReadAnotherTime) {
  polarline::Check unread = failed(true);
  unread.id = "";
  const made_store::Metadata said{{"serial", "A1"}, {"station", "1"}};
  store.addAt(name(9), name(1), check({0.05}), said);
  results.merge(store);
  store.addAt(name(9), name(9), unread, said);
  const auto done = results.merge(store);
  EXPECT_EQ(done.sets, 1U);
  EXPECT_EQ(results.one("SELECT sets || ' ' || passed || ' ' || errors FROM yield_by_station_day"), "1 1 0");
  EXPECT_EQ(results.merge(store).unchanged, 2U);
  EXPECT_EQ(results.one("SELECT verdict FROM sets"), "pass");
  isAsAFreshMerge();
  // Whichever store comes first.
  const made_store::Store good, bad;
  good.addAt(name(9), name(1), check({0.05}), said);
  bad.addAt(name(9), name(9), unread, said);
  for (const auto& order : {std::vector{good.path(), bad.path()}, std::vector{bad.path(), good.path()}}) {
    const made_store::Results one;
    for (const std::string& each : order) one.merge({each});
    EXPECT_EQ(one.one("SELECT count(*), min(verdict) FROM sets"), "1|pass");
  }
}

TEST_F(Merge, CountsASetThatCouldNotBeReadWhereAnotherLayInItsFolderBefore) {
  polarline::Check unread = failed(true);
  unread.id = "";
  store.addAt(name(9), name(1), check({0.05}), {{"serial", "A1"}});
  store.addAt(name(9), name(9), unread, {{"serial", "A2"}});
  store.addAt(name(8), name(8), unread, {{"serial", "A1"}});
  EXPECT_EQ(results.merge(store).sets, 3U);
}

TEST_F(Merge, DropsASetThatCouldNotBeReadOnceItsDocumentIsGone) {
  polarline::Check unread = failed();
  unread.id = "";
  const made_store::Store other;
  store.add(name(1), unread);
  other.add(name(1), unread);
  store.add(name(2), failed());
  results.merge({store.path(), other.path()});
  std::filesystem::remove(store.file(name(1)));
  std::filesystem::remove(store.file(name(2)));
  store.add(name(3), check({0.05}));
  results.merge({store.path(), other.path()});
  EXPECT_THAT(results.rows("SELECT name FROM sets ORDER BY name"), ElementsAre(name(1), name(2), name(3)));
  std::filesystem::remove(other.file(name(1)));
  results.merge({store.path(), other.path()});
  // What was read stays, also without its document.
  EXPECT_THAT(results.rows("SELECT name FROM sets ORDER BY name"), ElementsAre(name(2), name(3)));
}

TEST_F(Merge, RefusesAFolderThatIsNoStore) {
  store.add(name(1), check({0.05}));
  const TempFolder empty;  // The place of a disk that is not mounted.
  try {
    results.merge({store.path(), empty.path().string()});
    ADD_FAILURE();
  } catch (const polarline::InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr("has no polarline-store.json"));
  }
  EXPECT_FALSE(std::filesystem::exists(results.path()));
}

TEST_F(Merge, OnceMoreChangesNothing) {
  store.add(name(1), check({0.05}), {{"station", "3"}});
  store.add(name(2), check({0.2}));
  results.merge(store);
  const auto before = results.content();
  const auto again = results.merge(store);
  EXPECT_EQ(again.unchanged, 2U);
  EXPECT_EQ(again.added + again.replaced + again.renewed, 0U);
  EXPECT_EQ(results.content(), before);
}

TEST_F(Merge, ReplacesASetThatWasJudgedAnew) {
  store.add(name(1), failed(true));
  results.merge(store);
  const std::string id = results.one("SELECT id FROM sets");
  store.add(name(1), check({0.05}, "2026-01-02T03:05:00Z"));
  const auto again = results.merge(store);
  EXPECT_EQ(again.replaced, 1U);
  EXPECT_EQ(results.one("SELECT id, verdict, retry FROM sets"), id + "|pass|0");
  isAsAFreshMerge();
  // And back: what the store says now counts, also where it got worse.
  store.add(name(1), failed(true));
  results.merge(store);
  EXPECT_EQ(results.one("SELECT verdict FROM sets"), "error");
  isAsAFreshMerge();
}

TEST_F(Merge, KnowsAFileWrittenAnewOfTheSameSizeAndTime) {
  store.add(name(1), check({0.05}));
  results.merge(store);
  const auto time = std::filesystem::last_write_time(store.file(name(1)));
  store.add(name(1), check({0.06}));
  std::filesystem::last_write_time(store.file(name(1)), time);
  EXPECT_EQ(results.merge(store).replaced, 1U);
  isAsAFreshMerge();
}

TEST_F(Merge, TakesAFileThatWasOnlyTouchedAsItIs) {
  store.add(name(1), check({0.05}));
  results.merge(store);
  store.add(name(1), check({0.05}));
  const auto again = results.merge(store);
  EXPECT_EQ(again.unchanged, 1U);
  EXPECT_EQ(again.replaced, 0U);
}

TEST_F(Merge, RenewsMetadataThatChangedOrCameLater) {
  store.add(name(1), check({0.05}));
  results.merge(store);
  store.describe(name(1), {{"station", "3"}, {"time", "2025-12-01"}});
  EXPECT_EQ(results.merge(store).renewed, 1U);
  EXPECT_EQ(results.one("SELECT station, time FROM sets"), "3|2025-12-01T00:00:00Z");
  isAsAFreshMerge();
  store.describe(name(1), {{"model", "K2"}});
  results.merge(store);
  EXPECT_EQ(results.one("SELECT ifnull(station, '-'), model, time FROM sets"), "-|K2|2026-01-02T03:04:05Z");
  isAsAFreshMerge();
}

TEST_F(Merge, KeepsSetsWhoseDocumentIsGone) {
  store.add(name(1), check({0.05}));
  results.merge(store);
  std::filesystem::remove(store.file(name(1)));
  const auto again = results.merge(store);
  EXPECT_EQ(again.documents, 0U);
  EXPECT_EQ(again.sets, 1U);
}

TEST_F(Merge, PassesOverWhatIsNoDocument) {
  store.add(name(1), check({0.05}));
  store.write(name(2), "{}", ".claim");
  store.write(name(2), "half", ".json.partial-12-0");
  store.write("zz" + name(2), "no hex");
  store.write("ab", "too");
  std::filesystem::rename(store.file("ab"), store.file(name(1)).parent_path() / "ffff.json");
  std::filesystem::create_directories(store.path() + "/quarantine");
  EXPECT_EQ(results.merge(store).documents, 1U);
}

TEST_F(Merge, LeavesOutADocumentThatIsBrokenAndTellsItEachTime) {
  store.add(name(1), check({0.05}));
  store.write(name(2), toJson(check({0.05})).substr(0, 300));
  for (int k = 0; k < 2; ++k) {
    const auto done = results.merge(store);
    EXPECT_EQ(done.sets, 1U);
    ASSERT_EQ(done.unreadable.size(), 1U);
    EXPECT_EQ(done.unreadable[0].path, std::filesystem::canonical(store.file(name(2))).string());
    EXPECT_THAT(done.unreadable[0].reason, HasSubstr("byte 300"));
    EXPECT_EQ(results.one("SELECT path, reason FROM quarantine"),
              done.unreadable[0].path + "|" + done.unreadable[0].reason);
  }
  EXPECT_TRUE(std::filesystem::exists(store.file(name(2)))) << "nothing of the caller's is moved";
  store.add(name(2), check({0.05}));
  EXPECT_EQ(results.merge(store).added, 1U);
  EXPECT_THAT(results.rows("SELECT * FROM quarantine"), IsEmpty());
  isAsAFreshMerge();
}

TEST_F(Merge, KeepsWhatASetWasWhenItsDocumentBreaks) {
  store.add(name(1), check({0.05}));
  results.merge(store);
  const std::string whole = TempFolder::contentOf(store.file(name(1)));
  store.write(name(1), "");
  EXPECT_EQ(results.merge(store).unreadable.size(), 1U);
  EXPECT_EQ(results.one("SELECT verdict FROM sets"), "pass");
  store.write(name(1), whole);
  EXPECT_THAT(results.merge(store).unreadable, IsEmpty());
  isAsAFreshMerge();
}

TEST_F(Merge, CountsASetWhoseMetadataAreBrokenWithoutThem) {
  store.add(name(1), check({0.05}));
  store.write(name(1), "{", ".metadata.json");
  const auto done = results.merge(store);
  EXPECT_EQ(done.sets, 1U);
  EXPECT_EQ(done.unreadable.size(), 1U);
  store.describe(name(1), {{"station", "3"}});
  EXPECT_THAT(results.merge(store).unreadable, IsEmpty());
  EXPECT_EQ(results.one("SELECT station FROM sets"), "3");
  EXPECT_THAT(results.rows("SELECT * FROM quarantine"), IsEmpty());
}

/// The same set judged by two machines.
struct MergeTwoStores : Merge {
  made_store::Store other;

  /// Whichever store is named first or merged alone before.
  void holdsInEveryOrder(const std::string& query, const std::string& wanted) const {
    const made_store::Results forth, back, one_by_one;
    forth.merge({store.path(), other.path()});
    back.merge({other.path(), store.path()});
    one_by_one.merge({other.path()});
    one_by_one.merge({store.path()});
    for (const made_store::Results* each : {&forth, &back, &one_by_one}) EXPECT_EQ(each->one(query), wanted);
  }
};

TEST_F(MergeTwoStores, CountsASetOnceByItsLaterDocument) {
  store.add(name(1), check({0.05}, "2026-01-02T03:04:05Z"));
  other.add(name(1), check({0.2}, "2026-01-02T03:04:06Z"));
  holdsInEveryOrder("SELECT verdict FROM sets", "fail");
}

TEST_F(MergeTwoStores, OfCopiesWithOtherMetadataTakesThatOfTheFirstPath) {
  store.add(name(1), check({0.05}), {{"serial", "A"}});
  other.add(name(1), check({0.05}), {{"serial", "B"}});
  holdsInEveryOrder("SELECT serial FROM sets", store.path() < other.path() ? "A" : "B");
}

TEST_F(MergeTwoStores, PrefersADocumentThatNeedsNoRetry) {
  store.add(name(1), check({0.05}, "2026-01-02T03:04:05Z"));
  polarline::Check later = failed(true);
  later.started = "2026-01-09T00:00:00Z";
  other.add(name(1), later);
  holdsInEveryOrder("SELECT verdict FROM sets", "pass");
}

TEST_F(MergeTwoStores, ComesBackToTheOtherOneWhereTheFirstGetsWorse) {
  store.add(name(1), check({0.05}, "2026-01-02T03:04:07Z"));
  other.add(name(1), check({0.2}, "2026-01-02T03:04:06Z"));
  results.merge({store.path(), other.path()});
  EXPECT_EQ(results.one("SELECT verdict FROM sets"), "pass");
  store.add(name(1), failed(true));
  results.merge({store.path(), other.path()});
  EXPECT_EQ(results.one("SELECT verdict FROM sets"), "fail");
  EXPECT_EQ(results.content(), undisturbed({other.path(), store.path()}));
}

TEST_F(Merge, TakesAFolderThatIsNamedTwiceOnce) {
  store.add(name(1), check({0.05}));
  EXPECT_EQ(results.merge({store.path(), store.path() + "/."}).documents, 1U);
}

TEST_F(Merge, RefusesAStoreThatIsNoFolder) {
  EXPECT_THROW(results.merge({store.path() + "/none"}), polarline::InputError);
  EXPECT_FALSE(std::filesystem::exists(results.path())) << "nothing is made for it";
}

TEST_F(Merge, OfAnEmptyStoreMakesEmptyResults) { EXPECT_EQ(results.merge(store).sets, 0U); }

TEST_F(Merge, BesideOthersIsAsOneAlone) {
  for (unsigned k = 0; k < 600; ++k) store.add(name(k), check({0.001 * k}), {{"station", std::to_string(k % 3)}});
  std::vector<std::thread> merges;
  for (int k = 0; k < 3; ++k) merges.emplace_back([this] { results.merge(store); });
  for (std::thread& each : merges) each.join();
  isAsAFreshMerge();
  EXPECT_THAT(results.rows("PRAGMA foreign_key_check"), IsEmpty());
}

TEST_F(Merge, WhileWorkersWriteComesToTheLastStateInTheEnd) {
  for (unsigned k = 0; k < 300; ++k) store.add(name(k), check({0.05}));
  std::thread worker([this] {
    for (unsigned k = 0; k < 300; ++k) store.add(name(k), check({0.2}, "2026-01-03T00:00:00Z"));
  });
  for (int k = 0; k < 3; ++k) results.merge(store);
  worker.join();
  results.merge(store);
  EXPECT_EQ(results.one("SELECT count(*) FROM sets WHERE verdict = 'fail'"), "300");
  isAsAFreshMerge();
}

TEST_F(Merge, ReportsHowFarItIs) {
  for (unsigned k = 0; k < 300; ++k) store.add(name(k), check({}));
  std::vector<std::size_t> seen;
  polarline::merge({store.path()}, results.path(), {[&](std::size_t done, std::size_t all) {
                     EXPECT_EQ(all, 300U);
                     seen.push_back(done);
                   }});
  ASSERT_GE(seen.size(), 2U);
  EXPECT_EQ(seen.back(), 300U);
}

}  // namespace
